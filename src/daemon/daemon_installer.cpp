// SPDX-License-Identifier: MIT
#include "daemon/daemon_installer.h"

#include "daemon/command_runner.h"
#include "platform/child_process.h"
#include "platform/queues.h"
#include "platform/system_calls.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>

#include <optional>
#include <tuple>

namespace tarnwick {

using namespace Qt::StringLiterals;
using Outcome = DaemonInstaller::Outcome;

namespace {

// A prompt holds its thread for as long as it is open; by default there are as many threads as
// processors, and a forgotten prompt would hold up the next one.
constexpr int maxOpenPrompts = 64;

QString quoted(const QString& path) {
    return u'\'' + path + u'\'';
}

QString copy(const QString& from, const QString& to) {
    return u"cp "_s + quoted(from) + u' ' + quoted(to);
}

// A quote ends the quoting, and what stands behind it would be run as administrator.
std::optional<QString> firstWithQuote(const DaemonInstaller::Sources& sources,
                                      const QString& jobFile) {
    for (const QString& path : {sources.tools.daemonPath, sources.tools.cliPath, jobFile,
                                sources.platform.installDir, sources.platform.installedJobFile}) {
        if (path.contains(u'\''))
            return path;
    }
    return std::nullopt;
}

// The job description to copy: the packaged one, else one that is written for it.
QString jobFileOf(const DaemonInstaller::Sources& sources) {
    const Platform& platform = sources.platform;
    const QString bundled = sources.bundleDir + platform.bundledJobDirectory + platform.jobFileName;
    if (QFileInfo::exists(bundled))
        return bundled;
    const QString generated = sources.paths.stateDir() + u'/' + platform.jobFileName;
    QSaveFile file(generated);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(platform.jobFileText.toUtf8());
        file.commit(); // a failure shows up as a failed copy
    }
    return generated;
}

Outcome run(const CommandLine& command, const Environment& environment, const Timing& timing,
            const CancellationToken& cancellation) {
    auto child = ChildProcess::start(command, environment);
    if (!child.isStarted())
        return {false, u"Failed to install: "_s + qt_error_string(child.startError())};
    // Without a limit: the user may leave the prompt open.
    if (!child.waitForEnd(QDeadlineTimer::Forever, timing.pollStep, cancellation))
        return {}; // the program is being left, and shows nothing any more
    const QDeadlineTimer readingDeadline(timing.commandTimeout);
    const QString output = textFromUtf8(child.readOutput(readingDeadline, cancellation));
    if (child.hasSucceeded())
        return {true, {}};
    return {false, output.isEmpty() ? u"Installation cancelled"_s : output};
}

} // namespace

DaemonInstaller::DaemonInstaller(Sources sources, Timing timing, CancellationToken cancellation)
    : sources_(std::move(sources)), timing_(timing), cancellation_(std::move(cancellation)) {
    pool_->setMaxThreadCount(maxOpenPrompts);
}

// The cancellation ends every wait for a prompt. What is stuck in the kernel all the same, with a
// packaged file on a dead network mount for instance, is left behind with its pool.
DaemonInstaller::~DaemonInstaller() {
    constexpr int leavingTimeout = 150; // milliseconds
    pool_->clear();
    if (!pool_->waitForDone(leavingTimeout))
        std::ignore = pool_.release();
}

bool DaemonInstaller::isInstalled() const {
    return ToolPaths::installed(sources_.platform).exist();
}

void DaemonInstaller::install(std::function<void(const Outcome&)> done) {
    pool_->start([sources = sources_, timing = timing_, cancellation = cancellation_,
                  done = std::move(done)]() mutable {
        Outcome outcome;
        if (!cancellation.isCancelled()) {
            enterUserInitiatedQualityOfService();
            const Platform& platform = sources.platform;
            const QString jobFile = jobFileOf(sources);
            const QString line = installLine(platform, sources.tools, jobFile);
            if (const auto path = firstWithQuote(sources, jobFile))
                outcome.message = u"Failed to install: there is a single quote in "_s + *path;
            else
                outcome = run(platform.authorise(line), sources.environment, timing, cancellation);
        }
        postToMainQueue([outcome, done = std::move(done)] { done(outcome); });
    });
}

QString DaemonInstaller::installLine(const Platform& platform, const ToolPaths& tools,
                                     const QString& jobFile) {
    const ToolPaths targets = ToolPaths::installed(platform);
    const QStringList steps = {
        u"mkdir -p "_s + quoted(platform.installDir), copy(tools.daemonPath, targets.daemonPath),
        copy(tools.cliPath, targets.cliPath),         u"chmod +x "_s + quoted(targets.daemonPath),
        u"chmod +x "_s + quoted(targets.cliPath),     u"mkdir -p /var/run"_s,
        copy(jobFile, platform.installedJobFile),     platform.loadJobStep,
    };
    return steps.join(u" && "_s);
}

} // namespace tarnwick
