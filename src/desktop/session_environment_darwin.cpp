// SPDX-License-Identifier: MIT
#include "desktop/session_environment.h"

namespace tarnwick {

// Qt uses no bus there.
void spareQtAnUnresponsiveBus(int, char**) {}

} // namespace tarnwick
