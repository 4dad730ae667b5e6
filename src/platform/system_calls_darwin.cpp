// SPDX-License-Identifier: MIT
#include "platform/system_calls.h"

#include <fcntl.h>
#include <malloc/malloc.h>
#include <pthread/qos.h>
#include <unistd.h>

namespace tarnwick {

// There is no pipe2() here. A child that another thread starts before the ends are marked does not
// inherit them either: every child of ours closes by default what it is not given.
bool openPipe(int (&ends)[2]) {
    if (pipe(ends) != 0)
        return false;
    for (const int end : ends)
        fcntl(end, F_SETFD, FD_CLOEXEC);
    return true;
}

// The kernel grows a pipe by itself, and has no call for it.
void enlargePipe(int, int) {}

void closeInheritedDescriptors(posix_spawnattr_t&, posix_spawn_file_actions_t& actions,
                               short& flags) {
    flags = static_cast<short>(flags | POSIX_SPAWN_CLOEXEC_DEFAULT);
    posix_spawn_file_actions_addinherit_np(&actions, STDIN_FILENO);
}

void returnFreedMemory() {
    malloc_zone_pressure_relief(nullptr, 0);
}

void enterBackgroundQualityOfService() {
    pthread_set_qos_class_self_np(QOS_CLASS_BACKGROUND, 0);
}

void enterUserInitiatedQualityOfService() {
    pthread_set_qos_class_self_np(QOS_CLASS_USER_INITIATED, 0);
}

} // namespace tarnwick
