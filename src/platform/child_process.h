// SPDX-License-Identifier: MIT
#pragma once

#include "platform/command_line.h"

#include <QByteArray>
#include <QDeadlineTimer>

#include <chrono>
#include <optional>
#include <sys/types.h>
#include <vector>

namespace tarnwick {

class CancellationToken;
class Environment;

/// Owns one child process and the read end of the pipe that its output goes to.
///
/// The child gets this process's standard input, default signal handling, and no other descriptor
/// of ours. Destroying the owner closes the pipe; it neither kills nor
/// waits. A caller that leaves a child running passes its `release()`d id to a ChildReaper.
///
/// Not thread-safe: one object is used by one thread at a time.
class ChildProcess {
public:
    enum class Output {
        Captured,  ///< Standard output and error go to one pipe, read with readOutput().
        Discarded, ///< Both go to the null device.
    };

    /// Starts `command`. A failure shows in isStarted() and startError().
    static ChildProcess start(const CommandLine& command, const Environment& environment,
                              Output output = Output::Captured);

    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&&) = delete;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    bool isStarted() const { return startError_ == 0; }

    int startError() const { return startError_; } ///< An errno value; 0 when it was started.

    /// Whether the child has not ended yet. Never blocks; reaps a child that has.
    bool isRunning();

    /// Checks every `step` whether the child has ended; false when it still runs at `deadline` or
    /// on `cancellation`. Polls, because waitpid() has no timeout, SIGCHLD is shared by the whole
    /// process and a pidfd exists on Linux alone.
    bool waitForEnd(QDeadlineTimer deadline, std::chrono::milliseconds step,
                    const CancellationToken& cancellation);

    /// Whether the child has ended by itself with status 0.
    bool hasSucceeded() const;

    /// Sends SIGTERM, which the child may ignore.
    void terminate() const;

    /// Reads the output to end of file, or until `deadline` or `cancellation`: a grandchild may
    /// hold the pipe open indefinitely. Returns what was read by then.
    QByteArray readOutput(QDeadlineTimer deadline, const CancellationToken& cancellation) const;

    /// Has a small process of its own read the output from now on, so that a child that outlives
    /// this program is not ended for printing to nobody. It goes with the child, or after as much
    /// as is ever read of an output.
    void drainBehindUs(const Environment& environment);

    /// Gives up ownership; returns the child's id when it still has to be reaped.
    std::optional<pid_t> release();

private:
    ChildProcess() = default;

    pid_t pid_ = -1; ///< -1 once reaped or released.
    int status_ = -1;
    int startError_ = 0;
    int pipe_ = -1;
};

/// Collects children that were left running, so that they do not stay as zombies.
///
/// Not thread-safe: one object is used by one thread at a time.
class ChildReaper {
public:
    void adopt(pid_t child) { children_.push_back(child); }

    /// Reaps those that have ended; never blocks.
    void reap();

    /// Waits until all have ended; false when some have not by `deadline`.
    bool waitForAll(QDeadlineTimer deadline);

    /// How many have not ended yet.
    std::size_t count() const { return children_.size(); }

private:
    std::vector<pid_t> children_;
};

} // namespace tarnwick
