// SPDX-License-Identifier: MIT
#include "platform/child_reaper.h"

#include <sys/wait.h>

namespace tarnwick {

void ChildReaper::adopt(pid_t child) {
    children_.push_back(child);
}

void ChildReaper::reap() {
    std::erase_if(children_, [](pid_t child) { return waitpid(child, nullptr, WNOHANG) != 0; });
}

} // namespace tarnwick
