// SPDX-License-Identifier: MIT
#include "desktop/compositing.h"

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

} // namespace tarnwick
