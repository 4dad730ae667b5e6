// SPDX-License-Identifier: MIT
#include "app/command_line_options.h"

#include "desktop/termination_signals.h"

#include <QEventLoop>

#include <cstdio>

namespace tarnwick {

using namespace Qt::StringLiterals;

CommandLineOptions CommandLineOptions::parse(const QStringList& arguments) {
    CommandLineOptions options;
    for (const QString& argument : arguments) {
        if (argument == "--help"_L1 || argument == "-h"_L1)
            return {Action::ShowHelp};
        if (argument == "--version"_L1)
            return {Action::ShowVersion};
        if (argument == "--install-daemon"_L1)
            options.action = Action::InstallDaemon;
        else if (argument == "--quiet"_L1)
            options.isQuiet = true;
        else
            return {Action::Refuse, u"unknown option '%1'"_s.arg(argument)};
    }
    return options;
}

QString CommandLineOptions::helpText() {
    return u"Usage: tarnwick-client [--help | --version | --install-daemon | --quiet]\n"
           "  --install-daemon  install and start the network daemon, with administrator rights\n"
           "  --quiet           show the icon and no window, as when logging in\n"_s;
}

int runInstallCommand(DaemonManagerOptions options) {
    constexpr int interrupted = 1;
    QEventLoop loop;
    TerminationSignals terminationSignals;
    QObject::connect(&terminationSignals, &TerminationSignals::received, &loop,
                     [&loop] { loop.exit(interrupted); });

    const auto daemon = DaemonManager::create(std::move(options));
    daemon->installAndStartDaemon([&](bool succeeded) {
        if (succeeded) {
            std::puts("The network daemon is installed and started.");
        } else {
            const QString message = daemon->state().errorMessage.value_or(QString());
            std::fprintf(stderr, "%s\n", qPrintable(message));
        }
        loop.exit(succeeded ? 0 : 1);
    });
    return loop.exec();
}

} // namespace tarnwick
