// SPDX-License-Identifier: MIT
#include "platform/spawn_support.h"

#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {

// There is no pipe2() here. A child that another thread starts before the ends are marked is safe
// all the same: every child of ours closes by default what it is not given.
bool openPipe(int (&ends)[2]) {
    if (pipe(ends) != 0)
        return false;
    for (const int end : ends)
        fcntl(end, F_SETFD, FD_CLOEXEC);
    return true;
}

void closeInheritedDescriptors(posix_spawnattr_t&, posix_spawn_file_actions_t& actions,
                               short& flags) {
    flags = static_cast<short>(flags | POSIX_SPAWN_CLOEXEC_DEFAULT);
    posix_spawn_file_actions_addinherit_np(&actions, STDIN_FILENO);
}

} // namespace tarnwick
