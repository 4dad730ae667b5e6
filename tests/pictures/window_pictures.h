// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"
#include "picture.h"
#include "support/controller_world.h"

#include <memory>

namespace tarnwick::pictures {

/// Paints the update dialog and the auth-key window in their states.
void paintWindows(const test::ControllerWorld& world, const std::shared_ptr<DaemonManager>& daemon,
                  const TakePicture& take);

} // namespace tarnwick::pictures
