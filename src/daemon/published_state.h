// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_state.h"

#include <QObject>

#include <type_traits>
#include <utility>

namespace tarnwick {

/// The controller's state, every change of which is announced before it is stored.
///
/// Views hold it const: they connect and read, and the controller alone sets. Main thread only.
class PublishedState : public QObject {
    Q_OBJECT

public:
    const DaemonState& value() const { return value_; }

    /// Sets one field. Setting the value that it already has is announced, but reported by
    /// changed() only when it differs: most polls find what the last one found.
    template <typename Field>
    void set(Field DaemonState::*field, std::type_identity_t<Field> value) {
        Q_EMIT objectWillChange();
        if (value_.*field == value)
            return;
        value_.*field = std::move(value);
        reportLater();
    }

Q_SIGNALS:
    /// A field is about to change; whoever reads it now gets the value before.
    void objectWillChange();

    /// Fields have changed: once in a turn of the event loop, however many they were. What shows
    /// the state renders on this.
    void changed();

private:
    void reportLater() {
        if (std::exchange(isChangePending_, true))
            return;
        const auto report = [this] {
            isChangePending_ = false;
            Q_EMIT changed();
        };
        QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
    }

    DaemonState value_;
    bool isChangePending_ = false;
};

} // namespace tarnwick
