// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/failure_notification.h"
#include "desktop/message_bus_linux.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

#include <functional>
#include <optional>

namespace tarnwick {

/// The desktop's notification service, to which each call is asynchronous and limited in time.
///
/// One call runs at a time: only the reply to the last says which notification the next replaces.
class FailureNotification::Service : public QObject {
public:
    Service();

    /// Shows the text, or with none takes the notification away.
    void show(const std::optional<QString>& text);

private:
    using Answered = std::function<void(const QDBusMessage& reply)>;

    void proceed();
    void askForMarkup();
    void notify(const QString& body);
    void call(const QString& method, const QVariantList& arguments, const Answered& answered);

    MessageBus bus_;
    std::unique_ptr<QDBusServiceWatcher> owner_;    ///< Null while there is no bus.
    std::unique_ptr<QDBusPendingCallWatcher> call_; ///< The one that runs.
    std::optional<QString> wanted_;
    bool isDue_ = false; ///< Whether the service is still to hear of `wanted_`.
    uint id_ = 0;        ///< The notification; 0 for none.
};

} // namespace tarnwick
