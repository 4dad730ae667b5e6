// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QObject>
#include <QPainterPath>

#include <functional>
#include <memory>

class QWindow;

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

} // namespace tarnwick
