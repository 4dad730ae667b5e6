// SPDX-License-Identifier: MIT
#include "desktop/status_notifier_watcher_linux.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* interfaceName = "org.kde.StatusNotifierWatcher";
constexpr int watcherTimeout = 3000; // milliseconds

bool saysThatNobodyHasTheName(const QDBusError& error) {
    return error.type() == QDBusError::ServiceUnknown ||
           error.name() == u"org.freedesktop.DBus.Error.NameHasNoOwner"_s;
}

} // namespace

StatusNotifierWatcher::StatusNotifierWatcher(const QDBusConnection& sessionBus)
    : QDBusAbstractInterface(u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s,
                             interfaceName, sessionBus, nullptr),
      presence_(service(), sessionBus, QDBusServiceWatcher::WatchForOwnerChange) {
    QObject::connect(&presence_, &QDBusServiceWatcher::serviceOwnerChanged, this,
                     [this](const QString&, const QString&, const QString& newOwner) {
                         mayExist_ = !newOwner.isEmpty();
                         Q_EMIT restarted();
                         if (newOwner.isEmpty())
                             Q_EMIT answered(false);
                         else
                             ask();
                     });
    QObject::connect(this, &StatusNotifierWatcher::StatusNotifierHostRegistered, this,
                     &StatusNotifierWatcher::ask);
    QObject::connect(this, &StatusNotifierWatcher::StatusNotifierHostUnregistered, this,
                     &StatusNotifierWatcher::ask);
}

void StatusNotifierWatcher::ask() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        service(), path(), u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << QString::fromLatin1(interfaceName) << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    auto* call =
        new QDBusPendingCallWatcher(connection().asyncCall(question, watcherTimeout), this);
    QObject::connect(call, &QDBusPendingCallWatcher::finished, this,
                     [this](QDBusPendingCallWatcher* finished) {
                         const QDBusPendingReply<QVariant> reply = *finished;
                         finished->deleteLater();
                         mayExist_ = !saysThatNobodyHasTheName(reply.error());
                         Q_EMIT answered(reply.isValid() && reply.value().toBool());
                         // It hangs, or is busy starting. Its end is reported otherwise.
                         if (reply.error().type() == QDBusError::NoReply)
                             ask();
                     });
}

} // namespace tarnwick
