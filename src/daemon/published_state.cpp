// SPDX-License-Identifier: MIT
#include "daemon/published_state.h"

namespace tarnwick {

void PublishedState::announce() {
    Q_EMIT objectWillChange();
    if (std::exchange(isChangePending_, true))
        return;
    const auto report = [this] {
        isChangePending_ = false;
        Q_EMIT changed();
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

} // namespace tarnwick
