// SPDX-License-Identifier: MIT
#include "platform/system_calls.h"

#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {

bool openPipe(int (&ends)[2]) {
    return pipe2(ends, O_CLOEXEC) == 0;
}

void closeInheritedDescriptors(posix_spawnattr_t&, posix_spawn_file_actions_t& actions, short&) {
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
}

// A Linux thread's nice value is inherited by the programs it starts: a background thread here
// would make the tool itself slow on a busy machine and run it into its time limit. The thread's
// own work is a millisecond a poll, so there is nothing to lower.
void enterBackgroundQualityOfService() {}

void enterUserInitiatedQualityOfService() {}

} // namespace tarnwick
