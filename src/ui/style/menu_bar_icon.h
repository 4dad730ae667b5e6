// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <QIcon>
#include <QSize>
#include <QString>

namespace tarnwick {

/// The picture of the program in the menu bar or status area: a PNG file as base64 text, 36 x 36
/// pixels for a display size of half that.
extern const char* const menuBarIconText;

/// An icon for the status area and what goes with it.
struct MenuBarIcon {
    QIcon icon;
    QSize size; ///< Nominal display size; empty for a symbol, which the status area sizes.
    bool isTemplate = false;       ///< The status area may tint it for its appearance.
    QString accessibleDescription; ///< "" when the status area's own name for it is enough.

    /// The program's icon, made from `text`. Text that is no picture yields the symbol "network";
    /// should there be none, the program stops. Main thread, with a GUI application.
    static MenuBarIcon make(const Platform& platform, const QByteArray& text = menuBarIconText);
};

} // namespace tarnwick
