// SPDX-License-Identifier: MIT
#include "platform/platform.h"

namespace tarnwick {

Platform hostPlatform() {
#ifdef __APPLE__
    return macOSPlatform();
#else
    return linuxPlatform();
#endif
}

} // namespace tarnwick
