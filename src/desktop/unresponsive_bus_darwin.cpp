// SPDX-License-Identifier: MIT
#include "desktop/unresponsive_bus.h"

namespace tarnwick {

// Qt uses no bus there.
void spareQtAnUnresponsiveBus(int, char**) {}

} // namespace tarnwick
