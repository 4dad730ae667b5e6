// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/appearance.h"

#include <QDBusAbstractInterface>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace tarnwick {

/// Whether Plasma's own colours are among these namespaces of the portal.
bool hasPlasmas(const QStringList& namespaces);

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

} // namespace tarnwick
