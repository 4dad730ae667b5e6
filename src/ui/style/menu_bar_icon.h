// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <QIcon>
#include <QSize>
#include <QString>

namespace tarnwick {

/// The hub and its six satellites in light grey with a dark outline, legible on dark and on light
/// panels without tinting.
///
/// `themeName` is for status areas that prefer a themed icon, which they can tint; "" for none.
QIcon networkGlyphIcon(const QString& themeName);

/// The menu-bar icon: a PNG file as base64 text, 36 x 36 pixels for a display size of 18 x 18.
extern const char* const menuBarIconText;

/// The icon for the status area and its properties.
struct MenuBarIcon {
    QIcon icon;
    QSize size;              ///< Display size; empty for a symbol, which the status area sizes.
    bool isTemplate = false; ///< The status area may tint it.
    QString accessibleDescription; ///< "" if the program's name is enough.

    /// Decodes `text`. Falls back to the symbol "network"; without that, too, the program aborts.
    /// Main thread, with a GUI application.
    static MenuBarIcon make(const Platform& platform, const QByteArray& text = menuBarIconText);
};

} // namespace tarnwick
