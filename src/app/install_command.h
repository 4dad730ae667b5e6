// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

namespace tarnwick {

/// Installs and starts the daemon, prints the outcome and returns the exit status, 0 or 1. Blocks
/// in its own event loop; needs a QCoreApplication and no display.
int runInstallCommand(DaemonManagerOptions options = {});

} // namespace tarnwick
