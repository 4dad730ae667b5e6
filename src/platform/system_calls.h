// SPDX-License-Identifier: MIT
#pragma once

#include <spawn.h>

// The few calls that the systems do not share; each system's are in a file of its own.

namespace tarnwick {

/// Opens a pipe that no child of ours inherits. False with errno set.
bool openPipe(int (&ends)[2]);

/// Makes a child start without any descriptor of ours beyond its standard streams.
void closeInheritedDescriptors(posix_spawnattr_t& attributes, posix_spawn_file_actions_t& actions,
                               short& flags);

/// Marks the calling thread's work as work that nobody waits for.
void enterBackgroundQualityOfService();

/// Marks the calling thread's work as work that the user waits for.
void enterUserInitiatedQualityOfService();

} // namespace tarnwick
