// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// A lock that at most one process holds, released by the system however that process ends.
///
/// QLockFile in its place would have to recognise locks that a crash left behind, by process ids,
/// which containers reuse.
class InstanceLock {
public:
    /// Tries to take the lock that the file at `path` stands for; makes the file when missing.
    explicit InstanceLock(const QString& path);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    enum class State {
        Held,
        HeldByOther,
        Impossible, ///< The file cannot be made or locked.
    };

    State state() const { return state_; }

private:
    int descriptor_ = -1;
    State state_ = State::Impossible;
};

} // namespace tarnwick
