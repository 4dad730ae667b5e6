// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractInterface>

namespace tarnwick {

/// The system's log-in manager, which announces sleep and wake-up.
class SleepMonitor : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit SleepMonitor(const QDBusConnection& systemBus)
        : QDBusAbstractInterface(QStringLiteral("org.freedesktop.login1"),
                                 QStringLiteral("/org/freedesktop/login1"),
                                 "org.freedesktop.login1.Manager", systemBus, nullptr) {}

Q_SIGNALS:
    /// The signal of this name on the bus: the computer is about to sleep, or has woken.
    void PrepareForSleep(bool start);
};

} // namespace tarnwick
