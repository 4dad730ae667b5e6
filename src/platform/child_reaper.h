// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>
#include <vector>

namespace tarnwick {

/// Collects children that nobody waits for any more, so that they do not stay as zombies.
///
/// Not thread-safe: one object is used by one thread at a time.
class ChildReaper {
public:
    void adopt(pid_t child);

    /// Reaps those that have ended; never blocks.
    void reap();

    /// How many have not ended yet.
    std::size_t count() const { return children_.size(); }

private:
    std::vector<pid_t> children_;
};

} // namespace tarnwick
