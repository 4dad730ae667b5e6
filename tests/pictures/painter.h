// SPDX-License-Identifier: MIT
#pragma once

#include "scenes.h"
#include "ui/panel/menu_bar_view.h"

#include <QImage>

namespace tarnwick::pictures {

/// Room around the windows of a picture, in device-independent pixels.
constexpr int pictureMargin = 32;

/// Light or dark colours as desktops have them.
QPalette palette(bool isDark);

/// What lies behind the windows.
QColor groundColor(bool isDark);

/// What the window shows, on nothing.
QImage imageOf(QWidget& window);

/// The shadow that a compositor would give the window at that place.
void paintShadow(QPainter& painter, const QImage& window, const QPointF& place);

/// Brings the panel into that scene and paints it with its popover, on a plain ground and with
/// the shadow that a compositor would give them.
QImage picture(MenuBarView& panel, const Scene& scene, bool isDark);

} // namespace tarnwick::pictures
