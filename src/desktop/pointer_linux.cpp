// SPDX-License-Identifier: MIT
#include "desktop/pointer.h"
#include "desktop/x11_linux.h"

#include <QCursor>
#include <QGuiApplication>

namespace tarnwick {

using namespace Qt::StringLiterals;

std::optional<QPoint> pointerPosition() {
    if (QGuiApplication::platformName().startsWith("wayland"_L1) || X11Display().isXwayland())
        return std::nullopt;
    return QCursor::pos();
}

} // namespace tarnwick
