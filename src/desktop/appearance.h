// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QMap>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace tarnwick {

/// The desktop's settings: values by key, by namespace.
using DesktopSettings = QMap<QString, QVariantMap>;

/// What the user has chosen for the whole desktop. By default nothing, which leaves Qt's own.
struct Appearance {
    enum class Scheme { NoPreference, Dark, Light };

    struct Font {
        QString family;
        double points = 0;

        bool operator==(const Font&) const = default;
    };

    struct Colors {
        QColor background;
        QColor text;

        bool operator==(const Colors&) const = default;
    };

    Scheme scheme = Scheme::NoPreference;
    std::optional<Colors> colors = std::nullopt; ///< Plasma's, which come before the scheme.
    bool hasHighContrast = false;
    std::optional<QColor> accent = std::nullopt;
    std::optional<Font> font = std::nullopt;
    std::optional<Font> monospacedFont = std::nullopt;
    double textScale = 1; ///< Factor for the size of fonts.

    bool operator==(const Appearance&) const = default;

    /// Reads the settings of the portal. One that has a wrong type or an absurd value counts as not
    /// chosen.
    static Appearance of(const DesktopSettings& settings);
};

/// The namespaces of the settings portal that say how this session looks. None where Qt itself has
/// it from the desktop. `hasPlasmaPlugin`: whether Plasma's own plug-in for this Qt is installed;
/// asked under Plasma only, since it reads folders.
QStringList appearanceNamespaces(const QProcessEnvironment& environment,
                                 const std::function<bool()>& hasPlasmaPlugin);

} // namespace tarnwick
