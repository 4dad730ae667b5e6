// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

namespace tarnwick {

/// Installs and starts the daemon, prints what came of it and returns the exit status: 0, or 1 when
/// it failed. Blocks in an event loop of its own; needs a QCoreApplication and no display.
int runInstallCommand(DaemonManagerOptions options = {});

} // namespace tarnwick
