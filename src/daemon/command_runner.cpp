// SPDX-License-Identifier: MIT
#include "daemon/command_runner.h"

#include "platform/logging.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QStringDecoder>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView timedOut = "error: connection timed out";

/// Reports one run of a program to the log. An auth key is never in it: neither as an argument nor
/// in the output of that run, which may repeat the key in any form.
class RunLog {
public:
    explicit RunLog(const QStringList& arguments) : arguments_(arguments) {
        const auto flag = arguments.indexOf("--authkey"_L1);
        hasSecret_ = flag >= 0;
        if (hasSecret_ && flag + 1 < arguments_.size())
            arguments_[flag + 1] = u"(hidden)"_s;
        elapsed_.start();
    }

    void report(const QString& outcome) const {
        qCInfo(toolLog).noquote().nospace()
            << arguments_.join(u' ') << " [" << elapsed_.elapsed() << " ms] " << outcome;
    }

    void reportOutput(bool hasSucceeded, const QByteArray& output) const {
        if (!toolLog().isInfoEnabled())
            return;
        constexpr qsizetype shownBytes = 200;
        QString outcome;
        QDebug text(&outcome);
        text << (hasSucceeded ? "succeeded," : "failed,") << output.size() << "bytes:";
        if (hasSecret_)
            text << "(hidden)";
        else if (output.isValidUtf8())
            text << QString::fromUtf8(output.left(shownBytes));
        else
            text << "not UTF-8";
        report(outcome);
    }

private:
    QStringList arguments_;
    bool hasSecret_;
    QElapsedTimer elapsed_;
};

} // namespace

CommandRunner::CommandRunner(QString cliPath, DaemonPaths paths, Timing timing,
                             CancellationToken cancellation, Environment environment)
    : cliPath_(std::move(cliPath)), paths_(std::move(paths)), timing_(timing),
      cancellation_(std::move(cancellation)), environment_(std::move(environment)),
      toolEnvironment_(environment_.with("BROWSER", "echo")) {}

QByteArray CommandRunner::runCLIWithTimeout(const QStringList& arguments,
                                            Timing::Milliseconds timeout) const {
    if (cancellation_.isCancelled()) // a second step of a command whose first was cut short
        return timedOut.toByteArray();
    return run(arguments, timeout, Purpose::Question);
}

QByteArray CommandRunner::runCLI(const QStringList& arguments) const {
    return runCLIWithTimeout(arguments, timing_.commandTimeout);
}

QByteArray CommandRunner::carryOut(const QStringList& arguments,
                                   Timing::Milliseconds timeout) const {
    return run(arguments, timeout, Purpose::Command);
}

QByteArray CommandRunner::carryOut(const QStringList& arguments) const {
    return carryOut(arguments, timing_.commandTimeout);
}

QByteArray CommandRunner::run(const QStringList& arguments, Timing::Milliseconds timeout,
                              Purpose purpose) const {
    leftRunning_->questions.reap();
    leftRunning_->commands.reap();
    const QString socketFlag = u"--socket="_s + paths_.socketPath();
    const CommandLine command = {cliPath_, QStringList(socketFlag) + arguments};
    if (cancellation_.isCancelled()) {
        startWhileLeaving(command);
        return timedOut.toByteArray();
    }
    const RunLog log(command.arguments);
    auto child = ChildProcess::start(command, toolEnvironment_);
    if (!child.isStarted()) {
        const QString reason = qt_error_string(child.startError());
        log.report(u"could not start: "_s + reason);
        return "error: " + reason.toUtf8();
    }

    // The output stays in the pipe until the tool has ended: one that prints more than the pipe
    // holds is stuck in a loop and is treated as one that hangs.
    QDeadlineTimer deadline(timeout);
    const bool hasEnded = waitForEnd(child, deadline, purpose);
    leftRunning_->questions.reap(); // those that took this run's time to end
    leftRunning_->commands.reap();
    if (!hasEnded) {
        log.report(cancellation_.isCancelled() ? u"left running"_s : u"timed out"_s);
        return timedOut.toByteArray();
    }
    deadline += timing_.pollStep.count();
    const QByteArray output = child.readOutput(deadline, cancellation_);
    log.reportOutput(child.hasSucceeded(), output);
    return output.isValidUtf8() ? output : QByteArray();
}

// Two that run at the same time might take effect in the other order.
void CommandRunner::startWhileLeaving(const CommandLine& command) const {
    leftRunning_->commands.waitForAll(
        cancellation_.deadlineAfterCancellation(timing_.leavingTimeout));
    const RunLog log(command.arguments);
    auto child = ChildProcess::start(command, toolEnvironment_, ChildProcess::Output::Discarded);
    log.report(child.isStarted() ? u"started while leaving"_s : u"could not start"_s);
    if (const auto pid = child.release())
        leftRunning_->commands.adopt(*pid);
}

void CommandRunner::pause(Timing::Milliseconds duration) const {
    cancellation_.waitFor(duration);
}

void CommandRunner::runSilently(const CommandLine& command, Timing::Milliseconds timeout) const {
    if (cancellation_.isCancelled())
        return;
    auto child = ChildProcess::start(command, environment_, ChildProcess::Output::Discarded);
    waitForEnd(child, QDeadlineTimer(timeout), Purpose::Question);
}

// A child that outlives its time is asked to end and not waited for. One that merely outlives us
// is left alone: the user's last command is to take effect, whatever the tool prints until then.
bool CommandRunner::waitForEnd(ChildProcess& child, QDeadlineTimer deadline,
                               Purpose purpose) const {
    if (child.waitForEnd(deadline, timing_.pollStep, cancellation_))
        return true;
    const bool isCommand = purpose == Purpose::Command;
    if (!cancellation_.isCancelled())
        child.terminate();
    else if (isCommand)
        child.drainBehindUs(environment_);
    if (const auto pid = child.release())
        (isCommand ? leftRunning_->commands : leftRunning_->questions).adopt(*pid);
    return false;
}

bool hasCommandError(const QByteArray& output) {
    // ASCII's lower case will do: no other letter has one of "error" as its lower case.
    return output.toLower().contains("error") || output.contains("Response status");
}

QString textFromUtf8(const QByteArray& bytes) {
    using Flag = QStringDecoder::Flag; // nothing is trimmed, a byte order mark included
    QStringDecoder decode(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decode(bytes);
    return decode.hasError() ? QString(u""_s) : text;
}

} // namespace tarnwick
