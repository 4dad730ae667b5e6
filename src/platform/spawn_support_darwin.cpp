// SPDX-License-Identifier: MIT
#include "platform/spawn_support.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {

namespace {

// There is no pipe2() here. A child that another thread starts between pipe() and this call is
// safe all the same: every child of ours closes by default what it is not given.
int closedInChildren(int descriptor) {
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(descriptor);
    return moved;
}

} // namespace

int makePipe(int (&ends)[2]) {
    int made[2];
    if (pipe(made) != 0)
        return errno;
    made[0] = closedInChildren(made[0]);
    made[1] = closedInChildren(made[1]);
    if (made[0] < 0 || made[1] < 0) {
        close(made[0]);
        close(made[1]);
        return EMFILE;
    }
    ends[0] = made[0];
    ends[1] = made[1];
    return 0;
}

void closeInheritedDescriptors(posix_spawnattr_t&, posix_spawn_file_actions_t& actions,
                               short& flags) {
    flags = static_cast<short>(flags | POSIX_SPAWN_CLOEXEC_DEFAULT);
    posix_spawn_file_actions_addinherit_np(&actions, STDIN_FILENO);
}

} // namespace tarnwick
