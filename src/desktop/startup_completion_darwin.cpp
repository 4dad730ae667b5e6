// SPDX-License-Identifier: MIT
#include "desktop/startup_completion.h"

namespace tarnwick {

void completeStartup(const QByteArray&) {}

} // namespace tarnwick
