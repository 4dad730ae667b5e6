// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMargins>
#include <QObject>
#include <QPainterPath>
#include <QPoint>

#include <functional>
#include <memory>
#include <optional>

class QWindow;

// What the program asks of the window system besides Qt. Main thread.
namespace tarnwick {

/// Whether a window may have translucent parts. Only an X server without a compositor shows them
/// black.
bool isScreenComposited();

/// Whether declareShadow() has an effect, so that a window may draw a shadow of its own.
bool canDeclareShadow();

/// Declares that these margins of the window are only its shadow, for the window manager, and that
/// it takes clicks within `shape` alone; in device-independent pixels. To be repeated on each
/// change.
void declareShadow(QWindow& window, const QMargins& margins, const QPainterPath& shape);

/// Calls `changed` whenever a compositor starts or ends, as long as the result exists. Null where
/// none comes or goes.
std::unique_ptr<QObject> watchCompositor(std::function<void()> changed);

/// Sets whether task bars and window switchers leave the window out, from when it is next shown.
void setLeftOutOfTaskBars(QWindow& window, bool isLeftOut);

/// Calls `clicked` whenever the empty desktop is clicked, as long as the result exists. Null where
/// such a click takes the focus, so that the active window knows of it anyhow.
std::unique_ptr<QObject> watchDesktopClicks(std::function<void()> clicked);

/// Where the pointer is, in device-independent pixels; none on Wayland, where a program knows only
/// where it last was over its own windows, and on Xwayland, where that goes for all X programs.
std::optional<QPoint> pointerPosition();

/// Reports that what a launch or a click with this token led to is there: on X the pointer shows
/// until then that the program is busy. On Wayland a token is used by a window's activation.
void completeStartup(const QByteArray& token);

} // namespace tarnwick
