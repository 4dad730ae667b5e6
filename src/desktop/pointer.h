// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

#include <optional>

namespace tarnwick {

/// Where the pointer is, in device-independent pixels; none on Wayland, where a program knows only
/// where it last was over its own windows, and on Xwayland, where that goes for all X programs.
std::optional<QPoint> pointerPosition();

} // namespace tarnwick
