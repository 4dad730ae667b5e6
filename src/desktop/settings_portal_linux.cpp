// SPDX-License-Identifier: MIT
#include "desktop/settings_portal_linux.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <limits>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// Calls wait without limit: a portal may be started late or hang, and its answer still counts.
constexpr int withoutLimit = std::numeric_limits<int>::max();

/// The value in Qt's types. Some portals put variants into variants.
QVariant plain(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return value;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentType() != QDBusArgument::StructureType)
        return {};
    QVariantList members;
    argument.beginStructure();
    while (!argument.atEnd())
        members.append(argument.asVariant());
    argument.endStructure();
    return members;
}

} // namespace

bool hasPlasmas(const QStringList& namespaces) {
    return std::ranges::any_of(namespaces,
                               [](const QString& name) { return name.startsWith("org.kde."_L1); });
}

SettingsPortal::SettingsPortal(const QDBusConnection& sessionBus, QStringList namespaces)
    : QDBusAbstractInterface(u"org.freedesktop.portal.Desktop"_s,
                             u"/org/freedesktop/portal/desktop"_s,
                             "org.freedesktop.portal.Settings", sessionBus, nullptr),
      namespaces_(std::move(namespaces)), isPlasmas_(hasPlasmas(namespaces_)),
      presence_(service(), sessionBus, QDBusServiceWatcher::WatchForRegistration) {
    // Or Qt drops the signal, whose types it looks up by name, until another call has made it
    // known.
    qRegisterMetaType<QDBusVariant>();
    QObject::connect(&presence_, &QDBusServiceWatcher::serviceRegistered, this,
                     &SettingsPortal::ask);
    QObject::connect(
        this, &SettingsPortal::SettingChanged, this,
        [this](const QString& nameSpace, const QString& key, const QDBusVariant& value) {
            if (!namespaces_.contains(nameSpace))
                return;
            if (isPlasmas_)
                return ask();
            settings_[nameSpace][key] = plain(value.variant());
            Q_EMIT changed();
        });
}

void SettingsPortal::ask() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(service(), path(), interface(), u"ReadAll"_s);
    question << namespaces_;
    auto* call = new QDBusPendingCallWatcher(connection().asyncCall(question, withoutLimit), this);
    QObject::connect(call, &QDBusPendingCallWatcher::finished, this,
                     [this](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         read(finished->reply());
                         Q_EMIT answered();
                     });
}

void SettingsPortal::read(const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "a{sa{sv}}"_L1)
        return;
    settings_ = qdbus_cast<DesktopSettings>(answer.arguments().constFirst());
    for (QVariantMap& values : settings_) {
        for (QVariant& value : values)
            value = plain(value);
    }
    Q_EMIT changed();
}

} // namespace tarnwick
