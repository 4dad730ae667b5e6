// SPDX-License-Identifier: MIT
#pragma once

#include <spawn.h>

// The few calls that differ by system, implemented in system_calls_linux.cpp and _darwin.cpp.

namespace tarnwick {

/// Opens a pipe that no child of ours inherits. False with errno set.
bool openPipe(int (&ends)[2]);

/// Gives the pipe the largest buffer that the system allows, but not more than `limit` bytes.
void enlargePipe(int end, int limit);

/// Makes a child start without any descriptor of ours beyond its standard streams.
void closeInheritedDescriptors(posix_spawnattr_t& attributes, posix_spawn_file_actions_t& actions,
                               short& flags);

/// Gives freed memory back to the system. Walks the whole heap: for rare moments.
void returnFreedMemory();

/// Lets the system run the calling thread's work later: nobody waits for it.
void enterBackgroundQualityOfService();

/// Lets the system run the calling thread's work sooner: the user waits for it.
void enterUserInitiatedQualityOfService();

} // namespace tarnwick
