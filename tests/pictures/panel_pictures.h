// SPDX-License-Identifier: MIT
#pragma once

#include "picture.h"
#include "scenes.h"
#include "ui/controls/popover.h"
#include "ui/panel/menu_bar_view.h"

#include <memory>

namespace tarnwick::pictures {

/// Room around the windows of a picture, in points.
constexpr int pictureMargin = 16;

/// Opens the panel, which shows the scene's state, and the scene's popover: null if it has none.
Popover* open(MenuBarView& panel, const Scene& scene);

/// Panel and popover on a plain background and, as without a compositor, with no shadow.
QImage pictureOf(MenuBarView& panel, Popover* popover);

void paintPanels(const std::shared_ptr<DaemonManager>& daemon, const TakePicture& take);

} // namespace tarnwick::pictures
