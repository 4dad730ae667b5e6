// SPDX-License-Identifier: MIT
#include "notification_desk.h"

#include <QDBusMessage>
#include <QStringList>

namespace tarnwick::soak {

using namespace Qt::StringLiterals;

namespace {

QString connectionName() {
    return u"notification desk"_s;
}

QString servicePath() {
    return u"/org/freedesktop/Notifications"_s;
}

QString serviceName() {
    return u"org.freedesktop.Notifications"_s;
}

} // namespace

NotificationDesk::NotificationDesk()
    : connection_(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                                connectionName())) {
    if (!connection_.registerVirtualObject(servicePath(), this) ||
        !connection_.registerService(serviceName()))
        qFatal("there is no session bus, or it has a notification service already");
}

NotificationDesk::~NotificationDesk() {
    connection_.unregisterService(serviceName());
    connection_.unregisterObject(servicePath());
    QDBusConnection::disconnectFromBus(connectionName());
}

bool NotificationDesk::handleMessage(const QDBusMessage& message,
                                     const QDBusConnection& connection) {
    QVariantList answer;
    if (message.member() == "GetCapabilities"_L1)
        answer.append(QStringList{u"body"_s});
    else if (message.member() == "Notify"_L1)
        answer.append(show(message.arguments()));
    else if (message.member() == "CloseNotification"_L1)
        shown_.remove(message.arguments().value(0).toUInt());
    connection.send(message.createReply(answer));
    if (changed)
        changed();
    return true;
}

uint NotificationDesk::show(const QVariantList& arguments) {
    const uint replaced = arguments.value(1).toUInt();
    const uint id = shown_.contains(replaced) ? replaced : ++lastId_;
    shown_.insert(id, arguments.value(4).toString());
    ++total_;
    return id;
}

} // namespace tarnwick::soak
