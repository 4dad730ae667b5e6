// SPDX-License-Identifier: MIT
#include "desktop/failure_notification.h"

#include <utility>

namespace tarnwick {

class FailureNotification::Service {};

FailureNotification::FailureNotification(ShowAtIcon showAtIcon)
    : showAtIcon_(std::move(showAtIcon)) {}

FailureNotification::~FailureNotification() = default;

void FailureNotification::show(const QString& text) {
    if (showAtIcon_)
        showAtIcon_(text);
}

// What an icon shows goes by itself.
void FailureNotification::withdraw() {}

} // namespace tarnwick
