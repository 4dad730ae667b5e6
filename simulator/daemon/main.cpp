// SPDX-License-Identifier: MIT
#include "daemon/server.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QResource>

#include <csignal>
#include <cstdio>
#include <pthread.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace tarnwick::simulator {

namespace {

constexpr int usageError = 2;

constexpr char explanation[] =
    "A stand-in for the network daemon. It touches no network.\n\n"
    "FAULT is hang, slow:SECONDS, garbage, flood, error, crash or none.\n"
    "COMMAND is status, list, switch, up, down, login or remove.";

int fail(const QString& sentence, int status = 1) {
    std::fprintf(stderr, "tarnwick-daemon: %s\n", qPrintable(sentence));
    return status;
}

int print(const QByteArray& text) {
    std::fputs(text.constData(), stdout);
    std::fflush(stdout);
    return 0;
}

void addOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(QLatin1StringView(explanation));
    parser.addHelpOption();
    parser.addOptions({
        {u"socket"_s, u"Where the tool finds it (/var/run/tarnwick.sock)."_s, u"PATH"_s,
         u"/var/run/tarnwick.sock"_s},
        {u"state"_s, u"What it keeps across restarts."_s, u"FILE"_s},
        {u"tun"_s, u"The network interface that it pretends to have."_s, u"NAME"_s, u"tarnwick0"_s},
        {u"no-logs-no-support"_s, u"Accepted and ignored."_s},
        {u"world"_s, u"Networks, accounts, peers and auth keys, as JSON."_s, u"FILE"_s,
         World::builtIn()},
        {u"fault"_s, u"Go wrong, in all commands or in one; may be repeated."_s,
         u"FAULT[@COMMAND]"_s},
        {u"print-world"_s, u"Print the built-in world, to start another from, and end."_s},
    });
}

/// Runs the event loop until one of these signals, which are blocked in every thread. A thread
/// waits for them, since a handler could reach the application only through a global variable.
int runUntil(const sigset_t& signals) {
    std::thread waiter([&signals] {
        int signal = 0;
        sigwait(&signals, &signal);
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    const int status = QCoreApplication::exec();
    waiter.join();
    return status;
}

int run(const QStringList& arguments, const sigset_t& signals) {
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments))
        return fail(parser.errorText() + u" See --help."_s, usageError);
    if (!parser.positionalArguments().isEmpty())
        return fail(u"it takes options only; see --help"_s, usageError);
    Faults faults;
    for (const QString& spec : parser.values(u"fault"_s)) {
        if (!faults.set(spec))
            return fail(u"\"%1\" is no fault; see --help"_s.arg(spec), usageError);
    }
    if (parser.isSet(u"help"_s))
        return print(parser.helpText().toUtf8());
    if (parser.isSet(u"print-world"_s))
        return print(QResource(World::builtIn()).uncompressedData());
    QString problem;
    const std::optional<World> world = World::load(parser.value(u"world"_s), problem);
    if (!world)
        return fail(u"the world %1 is no good: %2"_s.arg(parser.value(u"world"_s), problem));
    Simulator simulator(*world, parser.value(u"state"_s), faults, parser.value(u"tun"_s));
    Server server(simulator);
    const QString path = parser.value(u"socket"_s);
    problem = server.listen(path);
    if (!problem.isEmpty())
        return fail(problem);
    print("listening at " + QFile::encodeName(path) + '\n');
    return runUntil(signals);
}

} // namespace

} // namespace tarnwick::simulator

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr); // inherited by all threads
    const QCoreApplication application(argc, argv);
    return tarnwick::simulator::run(QCoreApplication::arguments(), signals);
}
