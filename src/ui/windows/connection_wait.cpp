// SPDX-License-Identifier: MIT
#include "ui/windows/connection_wait.h"

#include <QCoreApplication>
#include <QTimer>

namespace tarnwick {

void checkAndClose(const std::weak_ptr<DaemonManager>& daemon, std::chrono::milliseconds interval,
                   const std::function<void()>& onClose, int attempts) {
    const auto manager = daemon.lock();
    if (!manager)
        return;
    manager->refreshStatus(false, [daemon, interval, onClose, attempts] {
        const auto refreshed = daemon.lock();
        if (refreshed && refreshed->state().isConnected) {
            onClose();
        } else if (refreshed && attempts > 0) {
            QTimer::singleShot(interval, QCoreApplication::instance(),
                               [=] { checkAndClose(daemon, interval, onClose, attempts - 1); });
        }
    });
}

} // namespace tarnwick
