// SPDX-License-Identifier: MIT
#pragma once

#include "scenes.h"
#include "ui/panel/menu_bar_view.h"

#include <QImage>

namespace tarnwick::pictures {

/// Light or dark colours as desktops have them.
QPalette palette(bool isDark);

/// Brings the panel into that scene and paints it with its popover, on a plain ground and, as
/// without a compositor, with no shadow.
QImage picture(MenuBarView& panel, const Scene& scene, bool isDark);

} // namespace tarnwick::pictures
