// SPDX-License-Identifier: MIT
#include "desktop/status_notifier_watcher_linux.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* interfaceName = "org.kde.StatusNotifierWatcher";

} // namespace

StatusNotifierWatcher::StatusNotifierWatcher(const QDBusConnection& sessionBus)
    : QDBusAbstractInterface(u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s,
                             interfaceName, sessionBus, nullptr),
      presence_(service(), sessionBus, QDBusServiceWatcher::WatchForRegistration) {
    QObject::connect(&presence_, &QDBusServiceWatcher::serviceRegistered, this,
                     &StatusNotifierWatcher::ask);
    QObject::connect(this, &StatusNotifierWatcher::StatusNotifierHostRegistered, this,
                     &StatusNotifierWatcher::ask);
}

void StatusNotifierWatcher::ask() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        service(), path(), u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << QString::fromLatin1(interfaceName) << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    auto* call = new QDBusPendingCallWatcher(connection().asyncCall(question), this);
    QObject::connect(call, &QDBusPendingCallWatcher::finished, this,
                     [this](QDBusPendingCallWatcher* finished) {
                         const QDBusPendingReply<QVariant> reply = *finished;
                         finished->deleteLater();
                         Q_EMIT answered(reply.isValid() && reply.value().toBool());
                     });
}

} // namespace tarnwick
