// SPDX-License-Identifier: MIT
#include "platform/system_calls.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

namespace tarnwick {

namespace {

constexpr int usualPipe = 64 * 1024;

int largestPipe() {
    int size = usualPipe;
    std::ifstream("/proc/sys/fs/pipe-max-size") >> size;
    return size;
}

} // namespace

bool openPipe(int (&ends)[2]) {
    return pipe2(ends, O_CLOEXEC) == 0;
}

// Refused when all pipes of this user together would be too large: then a smaller one may do.
void enlargePipe(int end, int limit) {
    static const int largest = largestPipe(); // administrators set it when the system starts
    int size = std::clamp(largest, usualPipe, limit);
    while (fcntl(end, F_SETPIPE_SZ, size) < 0 && size > usualPipe)
        size /= 2;
}

void closeInheritedDescriptors(posix_spawnattr_t&, posix_spawn_file_actions_t& actions, short&) {
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
}

void returnFreedMemory() {
    malloc_trim(0);
}

// A Linux thread's nice value is inherited by the programs it starts: a background thread here
// would make the tool itself slow on a busy machine and run it into its time limit. The thread's
// own work is a millisecond a poll, so there is nothing to lower.
void enterBackgroundQualityOfService() {}

void enterUserInitiatedQualityOfService() {}

} // namespace tarnwick
