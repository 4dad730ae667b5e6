// SPDX-License-Identifier: MIT
#pragma once

#include "scenes.h"
#include "ui/menu_bar_view.h"

#include <QImage>

namespace tarnwick::pictures {

/// Light or dark colours as desktops have them.
QPalette palette(bool isDark);

/// Brings the panel into that scene and paints it with its popover, on a plain ground and with
/// the shadow that a compositor would give them.
QImage picture(MenuBarView& panel, const Scene& scene, bool isDark);

} // namespace tarnwick::pictures
