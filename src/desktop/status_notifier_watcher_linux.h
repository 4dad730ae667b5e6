// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractInterface>
#include <QDBusServiceWatcher>

namespace tarnwick {

/// The session's registry of status-notifier hosts. Asks it without blocking, again whenever the
/// registry comes back or names a new host.
class StatusNotifierWatcher : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit StatusNotifierWatcher(const QDBusConnection& sessionBus);

    /// Asks whether there is a host; answered() follows.
    void ask();

Q_SIGNALS:
    /// The signal of this name on the bus.
    void StatusNotifierHostRegistered();

    /// Whether a host shows icons; also sent when nobody could be asked.
    void answered(bool hasHost);

private:
    QDBusServiceWatcher presence_;
};

} // namespace tarnwick
