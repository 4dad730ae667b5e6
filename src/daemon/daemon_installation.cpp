// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "daemon/install_line.h"
#include "platform/child_process.h"
#include "platform/main_queue.h"
#include "platform/system_calls.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QSaveFile>

namespace tarnwick {

using namespace Qt::StringLiterals;

void DaemonManager::checkDaemonInstalled() {
    published_.set(&DaemonState::daemonInstalled, ToolPaths::installed(platform_).exist());
}

// The job description that an installation copies: the packaged one, else one written for it.
QString DaemonManager::launchDaemonPlistSource(const Platform& platform, const QString& bundleDir,
                                               const DaemonPaths& paths) {
    const QString bundled = bundleDir + platform.bundledJobDirectory + platform.jobFileName;
    if (QFileInfo::exists(bundled))
        return bundled;
    const QString generated = paths.stateDir() + u'/' + platform.jobFileName;
    QSaveFile file(generated);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(platform.jobFileText.toUtf8());
        file.commit(); // a failure shows up as a failed copy
    }
    return generated;
}

void DaemonManager::installAndStartDaemon(std::function<void(bool)> completion) {
    auto work = [weak = weak_from_this(), platform = platform_, tools = tools_, timing = timing_,
                 bundleDir = bundleDir_, paths = paths_, environment = environment_,
                 cancellation = cancellation_, completion = std::move(completion)]() mutable {
        InstallOutcome outcome;
        if (!weak.expired()) {
            enterUserInitiatedQualityOfService();
            const QString line =
                installLine(platform, tools, launchDaemonPlistSource(platform, bundleDir, paths));
            outcome = runInstallation(platform.authorise(line), environment, timing, cancellation);
        }
        postToMainQueue([weak, outcome, completion = std::move(completion)] {
            if (const auto self = weak.lock()) {
                self->finishInstallation(outcome);
                if (completion)
                    completion(outcome.succeeded);
            }
        });
    };
    installPool_.start(std::move(work));
}

// Waits as long as the user takes at the system's prompt.
DaemonManager::InstallOutcome
DaemonManager::runInstallation(const CommandLine& command, const Environment& environment,
                               const Timing& timing, const CancellationToken& cancellation) {
    auto child = ChildProcess::start(command, environment);
    if (!child.isStarted())
        return {false, u"Failed to install: "_s + qt_error_string(child.startError())};
    if (!child.waitForEnd(QDeadlineTimer::Forever, timing.pollStep, cancellation))
        return {}; // the program is being left; nobody is there to be told
    const QDeadlineTimer readingDeadline(timing.commandTimeout);
    const QString output = textFromUtf8(child.readOutput(readingDeadline, cancellation));
    if (child.hasSucceeded())
        return {true, {}};
    return {false, output.isEmpty() ? u"Installation cancelled"_s : output};
}

void DaemonManager::finishInstallation(const InstallOutcome& outcome) {
    if (!outcome.succeeded) {
        published_.set(&DaemonState::errorMessage, outcome.message);
        return;
    }
    published_.set(&DaemonState::daemonInstalled, true);
    published_.set(&DaemonState::errorMessage, std::nullopt);
    QTimer::singleShot(timing_.refreshAfterInstall, &statusTimer_, [this] { refreshStatus(true); });
}

// Runs on the work queue, before a log-in. A healthy daemon whose status mentions an error, in a
// peer's name for instance, is nudged as well; that costs a pause and does no harm.
void DaemonManager::ensureDaemonRunning(const CommandRunner& runner, const CommandLine& nudge) {
    const QByteArray output =
        runner.runCLIWithTimeout({u"status"_s, u"--json"_s}, runner.timing().probeTimeout);
    if (!output.isEmpty() && !hasCommandError(output))
        return;
    runner.runSilently(nudge, runner.timing().loginTimeout);
    runner.pause(runner.timing().daemonStartPause);
}

} // namespace tarnwick
