// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tarnwick {

/// Asks for the status until the machine is connected, and then calls `onClose`: once now, and
/// `attempts` times more, each `interval` after the answer before. Gives up silently. Needs no
/// view, and keeps nothing alive but `onClose`. Main thread.
void checkAndClose(const std::weak_ptr<DaemonManager>& daemon, std::chrono::milliseconds interval,
                   const std::function<void()>& onClose, int attempts);

} // namespace tarnwick
