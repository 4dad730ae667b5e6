// SPDX-License-Identifier: MIT
#include "desktop/appearance_monitor.h"
#include "desktop/message_bus_linux.h"
#include "desktop/x11_linux.h"
#include "platform/logging.h"

#include <QCoreApplication>
#include <QDBusAbstractInterface>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QDebug>
#include <QDir>

#include <algorithm>
#include <limits>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// Calls wait without limit: a portal may be started late or hang, and its answer still counts.
constexpr int withoutLimit = std::numeric_limits<int>::max();

bool hasPlasmas(const QStringList& namespaces) {
    return std::ranges::any_of(namespaces,
                               [](const QString& name) { return name.startsWith("org.kde."_L1); });
}

bool hasPlasmaPlugin() {
    const QStringList paths = QCoreApplication::libraryPaths();
    return std::ranges::any_of(paths, [](const QString& path) {
        return !QDir(path + u"/platformthemes"_s)
                    .entryList({u"*KDEPlasmaPlatformTheme*"_s}, QDir::Files)
                    .isEmpty();
    });
}

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

/// The session's settings portal. Queried asynchronously, and again whenever it restarts.
class SettingsPortal : public QDBusAbstractInterface {
    Q_OBJECT

public:
    SettingsPortal(const QDBusConnection& sessionBus, QStringList namespaces);

    /// Asks for the settings of the namespaces, and starts the portal if need be. answered()
    /// follows, however late.
    void ask();

    /// As last reported, with structures as lists.
    const DesktopSettings& settings() const { return settings_; }

Q_SIGNALS:
    /// The signal of this name on the bus.
    void SettingChanged(const QString& nameSpace, const QString& key, const QDBusVariant& value);

    /// settings() may have changed.
    void changed();

    /// ask() has an answer, or never will. Follows changed().
    void answered();

private:
    void read(const QDBusMessage& answer);

    const QStringList namespaces_;
    const bool isPlasmas_; ///< It reports that its colours are others, but not which.
    DesktopSettings settings_;
    QDBusServiceWatcher presence_;
};

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

class AppearanceMonitor::Watch {
public:
    Watch(AppearanceMonitor& monitor, QStringList namespaces)
        : monitor_(monitor), namespaces_(std::move(namespaces)),
          bus_(MessageBus::sessionAddress()) {
        QObject::connect(&bus_, &MessageBus::connected, &monitor, [this] { askPortal(); });
        QObject::connect(&bus_, &MessageBus::unavailable, &monitor, [this] {
            portal_.reset();
            monitor_.settle();
        });
    }

private:
    void askPortal() {
        portal_ = std::make_unique<SettingsPortal>(bus_.connection(), namespaces_);
        QObject::connect(portal_.get(), &SettingsPortal::changed, &monitor_,
                         [this] { report(portal_->settings()); });
        QObject::connect(portal_.get(), &SettingsPortal::answered, &monitor_,
                         [this] { monitor_.settle(); });
        portal_->ask();
    }

    void report(const DesktopSettings& settings) {
        Appearance appearance = Appearance::of(settings);
        if (hasPlasmas(namespaces_) && !appearance.colors)
            appearance = {}; // another desktop's portal
        // There Qt scales everything by it already, texts included.
        if (X11Display().hasResolutionOfTexts())
            appearance.textScale = 1;
        qCInfo(desktopLog) << "appearance: scheme" << int(appearance.scheme) << "high contrast"
                           << appearance.hasHighContrast << "text scale" << appearance.textScale;
        monitor_.setAppearance(appearance);
    }

    AppearanceMonitor& monitor_;
    const QStringList namespaces_;
    MessageBus bus_;
    std::unique_ptr<SettingsPortal> portal_; ///< Null while there is no bus.
};

AppearanceMonitor::AppearanceMonitor() {
    const QStringList namespaces =
        appearanceNamespaces(QProcessEnvironment::systemEnvironment(), hasPlasmaPlugin());
    if (namespaces.isEmpty())
        QMetaObject::invokeMethod(this, &AppearanceMonitor::settle, Qt::QueuedConnection);
    else
        watch_ = std::make_unique<Watch>(*this, namespaces);
}

AppearanceMonitor::~AppearanceMonitor() = default;

} // namespace tarnwick

#include "appearance_monitor_linux.moc"
