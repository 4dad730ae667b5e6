// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/timing.h"
#include "daemon/tool_paths.h"
#include "platform/cancellation_token.h"
#include "platform/child_process.h"
#include "platform/environment.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>
#include <QStringList>

#include <memory>

namespace tarnwick {

/// Runs the daemon's command-line tool, one short run a call, and returns what it printed.
///
/// Blocks its caller for up to the time limit plus one poll step: never call it on the main thread.
/// A value: copies share only the record of children that were left running, and may be used by one
/// thread at a time. Never throws and reports no exit status; failures are texts. Once
/// a stop is requested nothing but the user's commands is started any more, and every run reads as
/// timed out.
class CommandRunner {
public:
    CommandRunner(QString cliPath, DaemonPaths paths, Timing timing, CancellationToken cancellation,
                  Environment environment = Environment::ofThisProcess());

    /// Runs the tool with "--socket=…" and then `arguments`. Returns its standard output and error
    /// as they came in UTF-8, "" when they are anything else; "error: connection timed out" when it
    /// still ran at the limit; "error: " and the system's reason when it could not be started.
    QByteArray runCLIWithTimeout(const QStringList& arguments, Timing::Milliseconds timeout) const;

    /// The same with the usual time limit.
    QByteArray runCLI(const QStringList& arguments) const;

    /// The same for what the user has asked for, which takes effect even when the program is being
    /// left: a tool that runs then goes on, and what comes later is started all the same, once the
    /// one before has ended or the time to leave is over. Its output is then unknown.
    QByteArray carryOut(const QStringList& arguments, Timing::Milliseconds timeout) const;
    QByteArray carryOut(const QStringList& arguments) const;

    /// Runs another program for its effect alone: its output, and whether it starts, do not matter.
    void runSilently(const CommandLine& command, Timing::Milliseconds timeout) const;

    /// Sleeps, unless the program is being left.
    void pause(Timing::Milliseconds duration) const;

    const Timing& timing() const { return timing_; }

private:
    enum class Purpose { Question, Command };

    /// Children that were left running.
    struct LeftRunning {
        ChildReaper questions;
        ChildReaper commands;
    };

    QByteArray run(const QStringList& arguments, Timing::Milliseconds timeout,
                   Purpose purpose) const;
    void startWhileLeaving(const CommandLine& command) const;
    bool waitForEnd(ChildProcess& child, QDeadlineTimer deadline, Purpose purpose) const;

    QString cliPath_;
    DaemonPaths paths_;
    Timing timing_;
    CancellationToken cancellation_;
    Environment environment_;
    Environment toolEnvironment_; ///< A tool that would open a log-in page prints its address.
    std::shared_ptr<LeftRunning> leftRunning_ = std::make_shared<LeftRunning>();
};

/// Whether the tool's output reports a failure. Empty output does not.
bool hasCommandError(const QByteArray& output);

/// `bytes` as text, or "" when they are not valid UTF-8.
QString textFromUtf8(const QByteArray& bytes);

} // namespace tarnwick
