// SPDX-License-Identifier: MIT
#include "desktop/status_area.h"
#include "platform/queues.h"

#include <QPointer>

namespace tarnwick {

class StatusArea::Watch {};

// The menu bar is always there.
StatusArea::StatusArea() {
    postToMainQueue([area = QPointer<StatusArea>(this)] {
        if (area)
            Q_EMIT area->appeared();
    });
}

StatusArea::~StatusArea() = default;

} // namespace tarnwick
