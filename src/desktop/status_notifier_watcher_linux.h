// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractInterface>
#include <QDBusServiceWatcher>

namespace tarnwick {

/// The session's registry of status-notifier hosts. Queried asynchronously, and again whenever the
/// registry restarts or announces a new host.
class StatusNotifierWatcher : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit StatusNotifierWatcher(const QDBusConnection& sessionBus);

    /// Asks whether there is a host; answered() follows.
    void ask();

Q_SIGNALS:
    /// The signal of this name on the bus.
    void StatusNotifierHostRegistered();

    /// Whether a host shows icons; false when there is no registry.
    void answered(bool hasHost);

private:
    QDBusServiceWatcher presence_;
};

} // namespace tarnwick
