// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractInterface>
#include <QDBusServiceWatcher>

namespace tarnwick {

/// The session's registry of status-notifier items and hosts. Queried asynchronously, and again
/// whenever it restarts or its hosts come or go.
class StatusNotifierWatcher : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit StatusNotifierWatcher(const QDBusConnection& sessionBus);

    /// Asks whether there is a host; answered() follows.
    void ask();

    /// Whether there is a registry, with or without a host, as far as is known: one that hangs
    /// counts.
    bool mayExist() const { return mayExist_; }

Q_SIGNALS:
    /// The signals of these names on the bus.
    void StatusNotifierHostRegistered();
    void StatusNotifierHostUnregistered();

    /// The registry has gone, or another has taken its place: it knows no items.
    void restarted();

    /// Whether a host shows icons; false when there is no registry, or none that answers.
    void answered(bool hasHost);

private:
    QDBusServiceWatcher presence_;
    bool mayExist_ = true;
};

} // namespace tarnwick
