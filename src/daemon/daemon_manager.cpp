// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"

#include "daemon/failure_text.h"
#include "platform/logging.h"
#include "platform/queues.h"
#include "platform/system_calls.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// Without fallbacks: what another program or the administrator stores is none of ours. By name
// alone QSettings looks at the fallbacks' files all the same, at every poll.
std::unique_ptr<QSettings> userSettings(const Platform& platform) {
    auto settings =
        std::make_unique<QSettings>(platform.settingsOrganization, platform.settingsApplication);
    if (platform.settingsAreOneFile)
        return std::make_unique<QSettings>(settings->fileName(), QSettings::NativeFormat);
    settings->setFallbacksEnabled(false);
    return settings;
}

DaemonInstaller::Sources sourcesOf(const DaemonManagerOptions& options) {
    return {
        options.platform,
        options.bundleDir,
        {options.homeDir, options.platform.systemSocket},
        ToolPaths::resolve(options.platform, options.machine, options.bundleDir, options.homeDir),
        Environment::ofThisProcess()};
}

} // namespace

QString DaemonManagerOptions::executableDir() {
    const QString directory = QCoreApplication::applicationDirPath();
    return directory.isEmpty() ? u"."_s : directory;
}

QString DaemonManagerOptions::userHomeDir() {
    return QDir::homePath();
}

QString DaemonManagerOptions::machineName() {
    return machineHardwareName();
}

std::shared_ptr<DaemonManager> DaemonManager::create(DaemonManagerOptions options) {
    std::shared_ptr<DaemonManager> manager(new DaemonManager(std::move(options)));
    manager->checkDaemonInstalled();
    manager->startStatusPolling(); // needs the shared pointer, which a constructor does not have
    return manager;
}

DaemonManager::DaemonManager(DaemonManagerOptions options)
    : nudgeDaemon_(options.platform.nudgeDaemon), timing_(options.timing),
      details_(options.settings ? std::move(options.settings) : userSettings(options.platform),
               options.platform.profileDetailsKey),
      refresh_(timing_.profileRefreshInterval),
      installer_(sourcesOf(options), timing_, cancellation_),
      runner_(installer_.sources().tools.cliPath, installer_.sources().paths, timing_,
              cancellation_, installer_.sources().environment),
      workQueue_(u"com.tarnwick.client.daemon"_s, enterBackgroundQualityOfService) {
    qCInfo(daemonLog) << "tool" << installer_.sources().tools.cliPath << "daemon"
                      << installer_.sources().tools.daemonPath;
    QObject::connect(&statusTimer_, &QTimer::timeout, &statusTimer_,
                     [this] { beginRefresh(false, {}); });
}

DaemonManager::~DaemonManager() {
    statusTimer_.stop();
    cancellation_.cancel();
}

void DaemonManager::leave() {
    constexpr std::chrono::milliseconds forStarting{100};
    statusTimer_.stop();
    cancellation_.cancel();
    workQueue_.waitForAll(timing_.leavingTimeout + forStarting);
}

void DaemonManager::startStatusPolling() {
    statusTimer_.stop();
    refreshStatus();
    statusTimer_.start(timing_.statusPollInterval);
}

void DaemonManager::refreshStatus(bool forceProfiles, Completion completion) {
    postToMainQueue([weak = weak_from_this(), forceProfiles, completion = std::move(completion)] {
        if (const auto self = weak.lock())
            self->beginRefresh(forceProfiles, completion);
    });
}

void DaemonManager::beginRefresh(bool forceProfiles, Completion completion) {
    if (!refresh_.begin(forceProfiles)) {
        if (completion)
            completion();
        return;
    }
    attribution_.refreshBegins();
    const bool readsProfiles = refresh_.shouldReadProfiles(
        forceProfiles, state().profiles.isEmpty(), RefreshBookkeeping::Clock::now);
    workQueue_.async([weak = weak_from_this(), runner = runner_, readsProfiles,
                      known = attribution_.settledDetails(), previous = lastAnswer_,
                      completion = std::move(completion)]() mutable {
        const auto reading = weak.expired()
                                 ? StatusReading()
                                 : StatusReading::take(runner, readsProfiles, known, previous);
        postToMainQueue([weak, reading, completion = std::move(completion)] {
            if (const auto self = weak.lock())
                self->finishRefresh(reading, completion);
        });
    });
}

void DaemonManager::finishRefresh(const StatusReading& reading, const Completion& completion) {
    lastAnswer_ = reading.answer;
    if (reading.profiles) {
        details_.prune(*reading.profiles);
        published_.set(&DaemonState::profiles, details_.enrich(*reading.profiles));
        attribution_.listWasRead(*reading.profiles);
        refresh_.profilesWereRead(RefreshBookkeeping::Clock::now());
    }
    if (lastAnswer_.status)
        publish(*lastAnswer_.status, lastAnswer_.devices);
    else
        publishStopped();

    const bool forcedOneFollows = refresh_.end();
    if (completion)
        completion();
    if (forcedOneFollows)
        refreshStatus(true);
}

void DaemonManager::publishStopped() {
    qCInfo(daemonLog) << "no valid status: published as" << DaemonState::stoppedStatus();
    published_.set(&DaemonState::backendState, DaemonState::stoppedStatus());
    published_.set(&DaemonState::isConnected, false);
    published_.set(&DaemonState::ipAddress, {});
    published_.set(&DaemonState::hostname, {});
    published_.set(&DaemonState::devices, {});
}

void DaemonManager::publish(const StatusResponse& status, const QList<DeviceInfo>& sortedDevices) {
    published_.set(&DaemonState::backendState, status.backendState);
    published_.set(&DaemonState::isConnected, status.isConnected());
    published_.set(&DaemonState::ipAddress, status.ipAddress());
    published_.set(&DaemonState::hostname, status.hostname());
    if (state().isConnected)
        rememberDetails();
    clearErrorMessage();
    published_.set(&DaemonState::devices, sortedDevices);
    qCInfo(daemonLog) << "status" << state().backendState << "connected" << state().isConnected
                      << "devices" << sortedDevices.size() << "profiles" << state().profiles.size();
}

void DaemonManager::rememberDetails() {
    const NetworkProfileDetails details = {state().ipAddress, state().hostname};
    const auto id = attribution_.ownerOf(details, state().profiles);
    if (!id || !details_.remember(*id, details))
        return;
    attribution_.detailsWereRemembered(*id);
    published_.set(&DaemonState::profiles, details_.enrich(state().profiles));
}

// The frame of every command: `work` runs on the queue with values only, for a worker that held
// the controller might be the one to destroy it; `handle` gets its output on the main thread. It
// goes back there even when the controller is gone: what a view's callback holds, only the main
// thread may destroy.
void DaemonManager::perform(ToolWork work, CommandHandler handle) {
    workQueue_.async([weak = weak_from_this(), runner = runner_, work = std::move(work),
                      handle = std::move(handle)]() mutable {
        const QByteArray output = weak.expired() ? QByteArray() : work(runner);
        postToMainQueue([weak, handle = std::move(handle), output] {
            if (const auto self = weak.lock())
                handle(*self, output);
        });
    });
}

void DaemonManager::connect() {
    perform(ConnectionCommands::connect(), &DaemonManager::finishConnecting);
}

void DaemonManager::disconnect() {
    perform(ConnectionCommands::disconnect(), [](DaemonManager& self, const QByteArray& output) {
        if (!hasCommandError(output))
            self.report(std::nullopt);
        self.refreshStatus(true);
    });
}

void DaemonManager::switchProfile(const QString& id) {
    attribution_.switchWasQueued(id);
    perform(ConnectionCommands::switchProfile(id), &DaemonManager::finishConnecting);
}

void DaemonManager::finishConnecting(const QByteArray& output) {
    showFailure(output);
    report(failureIn(output));
    refreshStatus(true);
}

void DaemonManager::connectWithAuthKey(const QString& authKey, const QString& deviceName,
                                       Completion completion) {
    attribution_.logInWasQueued();
    perform(ConnectionCommands::logIn(authKey, deviceName, nudgeDaemon_),
            [authKey, completion = std::move(completion)](DaemonManager& self,
                                                          const QByteArray& output) {
                self.showFailure(output);
                const auto failure = failureIn(output, authKey);
                // Called by the controller itself, and never when it has gone.
                self.refreshStatus(true, [&self, output, failure, completion] {
                    self.finishLogin(output, failure);
                    if (completion)
                        completion();
                });
            });
}

// The refresh before this has cleared the message if the daemon answers at all: a refused log-in
// has to be shown again, unless the machine is connected all the same.
void DaemonManager::finishLogin(const QByteArray& output, const std::optional<QString>& failure) {
    if (state().isConnected)
        clearErrorMessage();
    else
        showFailure(output);
    report(state().isConnected ? std::nullopt : failure);
}

void DaemonManager::removeProfile(const QString& id) {
    perform(
        ConnectionCommands::removeProfile(id),
        [id](DaemonManager& self, const QByteArray& output) { self.finishRemoval(id, output); });
}

void DaemonManager::finishRemoval(const QString& id, const QByteArray& output) {
    if (hasCommandError(output)) {
        const QString message =
            output.isEmpty() ? u"Failed to remove profile "_s + id : textFromUtf8(output);
        published_.set(&DaemonState::errorMessage, message);
        report(failureText(message));
        return;
    }
    report(std::nullopt);
    details_.forget(id);
    QList<NetworkProfile> remaining = state().profiles;
    remaining.removeIf([&id](const NetworkProfile& profile) { return profile.id == id; });
    published_.set(&DaemonState::profiles, remaining);
    clearErrorMessage();
    refreshStatus(true);
}

void DaemonManager::checkDaemonInstalled() {
    published_.set(&DaemonState::daemonInstalled, installer_.isInstalled());
}

void DaemonManager::installAndStartDaemon(std::function<void(bool)> completion) {
    installer_.install([weak = weak_from_this(), completion = std::move(completion)](
                           const DaemonInstaller::Outcome& outcome) {
        const auto self = weak.lock();
        if (!self)
            return;
        self->finishInstallation(outcome);
        if (completion)
            completion(outcome.succeeded);
    });
}

void DaemonManager::finishInstallation(const DaemonInstaller::Outcome& outcome) {
    qCInfo(daemonLog) << "installation succeeded" << outcome.succeeded << outcome.message;
    if (!outcome.succeeded) {
        published_.set(&DaemonState::errorMessage, outcome.message);
        return;
    }
    published_.set(&DaemonState::daemonInstalled, true);
    clearErrorMessage();
    QTimer::singleShot(timing_.refreshAfterInstall, &statusTimer_, [this] { refreshStatus(true); });
}

void DaemonManager::showFailure(const QByteArray& output) {
    if (hasCommandError(output))
        published_.set(&DaemonState::errorMessage, textFromUtf8(output));
}

void DaemonManager::report(const std::optional<QString>& failure) const {
    if (commandEnded_)
        commandEnded_(failure);
}

void DaemonManager::clearErrorMessage() {
    published_.set(&DaemonState::errorMessage, std::nullopt);
}

} // namespace tarnwick
