// SPDX-License-Identifier: MIT
#include "desktop/compositing.h"

namespace tarnwick {

bool isScreenComposited() {
    return true;
}

} // namespace tarnwick
