// SPDX-License-Identifier: MIT
#include "desktop/pointer.h"

#include <QCursor>

namespace tarnwick {

std::optional<QPoint> pointerPosition() {
    return QCursor::pos();
}

} // namespace tarnwick
