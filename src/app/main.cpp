// SPDX-License-Identifier: MIT
#include "app/command_line_options.h"
#include "app/tarnwick_app.h"
#include "desktop/activation_token.h"
#include "desktop/session_environment.h"
#include "desktop/single_instance.h"
#include "platform/version.h"

#include <QApplication>

#include <array>
#include <csignal>
#include <cstdio>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int refusedStatus = 2;
constexpr std::chrono::seconds launchTimeout{3};

int runSecondLaunch(int argc, char** argv, const QString& socket, const QByteArray& token) {
    const QCoreApplication application(argc, argv);
    if (SingleInstanceChannel::askToShow(socket, token, launchTimeout))
        return 0;
    std::fputs("tarnwick-client: it is running already, but does not answer\n", stderr);
    return 1;
}

int runApplication(int argc, char** argv, bool isQuiet) {
    const QByteArray activationToken = takeActivationToken();
    const SessionPaths paths = SessionPaths::ofThisSession();
    const InstanceLock lock(paths.lock);
    if (lock.state() == InstanceLock::State::HeldByOther)
        return isQuiet ? 0 : runSecondLaunch(argc, argv, paths.socket, activationToken);
    spareQtAnUnresponsiveBus(argc, argv);

    // As arguments and not in the environment, which child processes inherit.
    QByteArray option("-platform");
    QByteArray platforms =
        preferredQtPlatforms(QProcessEnvironment::systemEnvironment()).toLatin1();
    std::array<char*, 4> arguments{argv[0], option.data(), platforms.data(), nullptr};
    int count = platforms.isEmpty() ? 1 : 3;

    QApplication application(count, arguments.data());
    QApplication::setQuitOnLastWindowClosed(false);
    // Shown by status areas and screen readers.
    QCoreApplication::setApplicationName(u"Tarnwick Network"_s);
    QGuiApplication::setDesktopFileName(u"tarnwick-client"_s);
    const TarnwickApp app(paths.socket, {}, std::nullopt, {isQuiet, activationToken});
    return QApplication::exec();
}

int runInstallation(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return runInstallCommand();
}

int runProgram(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    // A launcher that ignores SIGCHLD passes that on, and exit statuses would be lost.
    std::signal(SIGCHLD, SIG_DFL);
    const CommandLineOptions options = CommandLineOptions::parse(arguments);
    switch (options.action) {
    case CommandLineOptions::Action::Run:
        break;
    case CommandLineOptions::Action::ShowHelp:
        std::fputs(qPrintable(CommandLineOptions::helpText()), stdout);
        return 0;
    case CommandLineOptions::Action::ShowVersion:
        std::printf("tarnwick-client %s\n", qPrintable(versionCompiledIn({})));
        return 0;
    case CommandLineOptions::Action::InstallDaemon:
        return runInstallation(argc, argv);
    case CommandLineOptions::Action::Refuse:
        std::fprintf(stderr, "tarnwick-client: %s\n", qPrintable(options.error));
        return refusedStatus;
    }
    return runApplication(argc, argv, options.isQuiet);
}

} // namespace

} // namespace tarnwick

int main(int argc, char** argv) {
    return tarnwick::runProgram(argc, argv);
}
