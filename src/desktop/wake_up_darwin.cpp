// SPDX-License-Identifier: MIT
#include "desktop/wake_up.h"

namespace tarnwick {

class WakeUp::Watch {};

// The system's notification needs Objective-C. Without it the next refresh still follows within the
// poll's interval, as timers continue after sleep.
WakeUp::WakeUp() = default;

WakeUp::~WakeUp() = default;

} // namespace tarnwick
