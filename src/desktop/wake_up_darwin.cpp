// SPDX-License-Identifier: MIT
#include "desktop/wake_up.h"

namespace tarnwick {

class WakeUp::Watch {};

// Its notification is Objective-C's. The poll does without: the run loop's timers go on where they
// stopped, so that the next refresh follows within the poll's interval.
WakeUp::WakeUp() = default;

WakeUp::~WakeUp() = default;

} // namespace tarnwick
