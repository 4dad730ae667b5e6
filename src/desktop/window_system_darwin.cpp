// SPDX-License-Identifier: MIT
#include "desktop/window_system.h"

#include <QCursor>

namespace tarnwick {

bool isScreenComposited() {
    return true;
}

bool canDeclareShadow() {
    return false;
}

void declareShadow(QWindow&, const QMargins&, const QPainterPath&) {}

std::unique_ptr<QObject> watchCompositor(std::function<void()>) {
    return nullptr;
}

void setLeftOutOfTaskBars(QWindow&, bool) {}

std::unique_ptr<QObject> watchDesktopClicks(std::function<void()>) {
    return nullptr;
}

std::optional<QPoint> pointerPosition() {
    return QCursor::pos();
}

void completeStartup(const QByteArray&) {}

} // namespace tarnwick
