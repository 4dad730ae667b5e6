// SPDX-License-Identifier: MIT
#include "platform/spawn_support.h"

#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {

bool openPipe(int (&ends)[2]) {
    return pipe2(ends, O_CLOEXEC) == 0;
}

void closeInheritedDescriptors(posix_spawnattr_t&, posix_spawn_file_actions_t& actions, short&) {
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
}

} // namespace tarnwick
