// SPDX-License-Identifier: MIT
#include "desktop/appearance_monitor.h"
#include "desktop/message_bus_linux.h"
#include "desktop/settings_portal_linux.h"
#include "desktop/x11_linux.h"
#include "platform/logging.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

bool hasPlasmaPlugin() {
    const QStringList paths = QCoreApplication::libraryPaths();
    return std::ranges::any_of(paths, [](const QString& path) {
        return !QDir(path + u"/platformthemes"_s)
                    .entryList({u"*KDEPlasmaPlatformTheme*"_s}, QDir::Files)
                    .isEmpty();
    });
}

} // namespace

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
        appearanceNamespaces(QProcessEnvironment::systemEnvironment(), hasPlasmaPlugin);
    if (namespaces.isEmpty())
        QMetaObject::invokeMethod(this, &AppearanceMonitor::settle, Qt::QueuedConnection);
    else
        watch_ = std::make_unique<Watch>(*this, namespaces);
}

AppearanceMonitor::~AppearanceMonitor() = default;

} // namespace tarnwick
