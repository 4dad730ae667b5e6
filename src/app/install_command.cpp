// SPDX-License-Identifier: MIT
#include "app/install_command.h"

#include "desktop/termination_signals.h"

#include <QEventLoop>

#include <cstdio>

namespace tarnwick {

using namespace Qt::StringLiterals;

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
