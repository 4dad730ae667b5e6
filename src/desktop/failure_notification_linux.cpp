// SPDX-License-Identifier: MIT
#include "desktop/failure_notification.h"
#include "desktop/message_bus_linux.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QVariantMap>

#include <functional>
#include <limits>
#include <optional>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// Of the question that comes first. A failure that cannot be shown until then is history.
constexpr int questionTimeout = 5000; // milliseconds

/// A service that hangs shows the notification when it goes on, and only its reply says which one
/// the next replaces.
constexpr int withoutTimeout = std::numeric_limits<int>::max();

QString serviceName() {
    return u"org.freedesktop.Notifications"_s;
}

} // namespace

/// The desktop's notification service, to which each call is asynchronous.
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
    void call(const QString& method, const QVariantList& arguments, int timeout,
              const Answered& answered);

    MessageBus bus_;
    std::unique_ptr<QDBusServiceWatcher> owner_;    ///< Null while there is no bus.
    std::unique_ptr<QDBusPendingCallWatcher> call_; ///< The one that runs.
    std::optional<QString> wanted_;
    bool isDue_ = false; ///< Whether the service is still to hear of `wanted_`.
    uint id_ = 0;        ///< The notification; 0 for none.
};

FailureNotification::FailureNotification(ShowAtIcon showAtIcon)
    : showAtIcon_(std::move(showAtIcon)) {}

FailureNotification::~FailureNotification() = default;

void FailureNotification::show(const QString& text) {
    if (!service_)
        service_ = std::make_unique<Service>();
    service_->show(text);
}

void FailureNotification::withdraw() {
    if (service_)
        service_->show(std::nullopt);
}

FailureNotification::Service::Service() : bus_(MessageBus::sessionAddress()) {
    QObject::connect(&bus_, &MessageBus::connected, this, [this] {
        // The ids of a service mean nothing to the one that follows it.
        owner_ = std::make_unique<QDBusServiceWatcher>(serviceName(), bus_.connection(),
                                                       QDBusServiceWatcher::WatchForUnregistration);
        QObject::connect(owner_.get(), &QDBusServiceWatcher::serviceUnregistered, this,
                         [this] { id_ = 0; });
        proceed();
    });
    QObject::connect(&bus_, &MessageBus::unavailable, this, [this] {
        owner_.reset();
        call_.reset();
        id_ = 0;
        isDue_ = false; // by the time that there is a bus, the failure is history
    });
}

void FailureNotification::Service::show(const std::optional<QString>& text) {
    wanted_ = text;
    isDue_ = !bus_.isUnavailable();
    proceed();
}

void FailureNotification::Service::proceed() {
    if (!bus_.isConnected() || call_ || !isDue_)
        return;
    isDue_ = false;
    if (wanted_)
        askForMarkup();
    else if (const uint id = std::exchange(id_, 0))
        call(u"CloseNotification"_s, {id}, withoutTimeout, {});
}

void FailureNotification::Service::askForMarkup() {
    const auto answered = [this, text = wanted_.value_or(QString())](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ErrorMessage)
            return; // there is no such service
        if (isDue_)
            return; // for something newer
        const QStringList capabilities = reply.arguments().value(0).toStringList();
        notify(capabilities.contains("body-markup"_L1) ? text.toHtmlEscaped() : text);
    };
    call(u"GetCapabilities"_s, {}, questionTimeout, answered);
}

void FailureNotification::Service::notify(const QString& body) {
    const QVariantMap hints{{u"desktop-entry"_s, u"tarnwick-client"_s}};
    call(u"Notify"_s,
         {u"Tarnwick Network"_s, id_, u"tarnwick-client"_s, u"Tarnwick Network"_s, body,
          QStringList(), hints, -1},
         withoutTimeout, [this](const QDBusMessage& reply) {
             const QDBusPendingReply<uint> id = reply;
             id_ = id.isValid() ? id.value() : 0;
         });
}

void FailureNotification::Service::call(const QString& method, const QVariantList& arguments,
                                        int timeout, const Answered& answered) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        serviceName(), u"/org/freedesktop/Notifications"_s, serviceName(), method);
    message.setArguments(arguments);
    call_ =
        std::make_unique<QDBusPendingCallWatcher>(bus_.connection().asyncCall(message, timeout));
    QObject::connect(call_.get(), &QDBusPendingCallWatcher::finished, this,
                     [this, answered](QDBusPendingCallWatcher* finished) {
                         call_.release()->deleteLater(); // it is the sender
                         if (answered)
                             answered(finished->reply());
                         proceed();
                     });
}

} // namespace tarnwick
