// SPDX-License-Identifier: MIT
#pragma once

#include <spawn.h>

namespace tarnwick {

/// Makes a pipe whose two ends are closed in every child and are none of the standard streams.
/// Returns 0, or an errno value with both ends left at -1.
int makePipe(int (&ends)[2]);

/// Opens a pipe that no child of ours inherits, wherever its ends lie. False with errno set.
bool openPipe(int (&ends)[2]);

/// Asks that a child gets no descriptor of ours beyond its standard streams.
void closeInheritedDescriptors(posix_spawnattr_t& attributes, posix_spawn_file_actions_t& actions,
                               short& flags);

} // namespace tarnwick
