// SPDX-License-Identifier: MIT
// tarnwick_soak_quitter BUNDLE HOME SOCKET DELAY COMMAND...: a client without windows that is asked
// for the commands and is left so many milliseconds later, whatever runs then. A COMMAND is "up",
// "down" or the id of a profile to switch to.
#include "daemon/daemon_manager.h"

#include <QCoreApplication>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using tarnwick::DaemonManager;

namespace {

tarnwick::DaemonManagerOptions optionsFor(const QStringList& arguments) {
    tarnwick::DaemonManagerOptions options;
    options.bundleDir = arguments.value(1);
    options.homeDir = arguments.value(2);
    options.platform.systemSocket = arguments.value(3);
    options.platform.installDir = options.homeDir + u"/nothing-installed"_s;
    options.timing.pollStep = 5ms;
    options.timing.statusPollInterval = 20ms; // so that a poll often runs as the client is left
    options.settings =
        std::make_unique<QSettings>(options.homeDir + u"/client.conf"_s, QSettings::IniFormat);
    return options;
}

void ask(DaemonManager& daemon, const QString& command) {
    if (command == "up"_L1)
        daemon.connect();
    else if (command == "down"_L1)
        daemon.disconnect();
    else
        daemon.switchProfile(command);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    auto daemon = DaemonManager::create(optionsFor(arguments));
    for (const QString& command : arguments.mid(5))
        ask(*daemon, command);
    QTimer::singleShot(arguments.value(4).toInt(), &application, &QCoreApplication::quit);
    QCoreApplication::exec();
    daemon->leave();
    daemon.reset();
    return 0;
}
