// SPDX-License-Identifier: MIT
#include "platform/pipe.h"

#include "platform/system_calls.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {

namespace {

// In a process started with a standard stream closed, the next descriptor takes that number; in a
// child, dup2() onto the standard streams would replace the pipe.
int movedBeyondStandardStreams(int descriptor) {
    if (descriptor > STDERR_FILENO)
        return descriptor;
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(descriptor);
    return moved;
}

} // namespace

int makePipe(int (&ends)[2]) {
    int made[2];
    if (!openPipe(made))
        return errno;
    made[0] = movedBeyondStandardStreams(made[0]);
    made[1] = movedBeyondStandardStreams(made[1]);
    if (made[0] < 0 || made[1] < 0) {
        close(made[0]);
        close(made[1]);
        return EMFILE;
    }
    ends[0] = made[0];
    ends[1] = made[1];
    return 0;
}

} // namespace tarnwick
