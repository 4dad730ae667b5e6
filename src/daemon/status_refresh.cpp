// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "platform/main_queue.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

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
    const bool readProfiles = refresh_.shouldReadProfiles(forceProfiles, state().profiles.isEmpty(),
                                                          RefreshBookkeeping::Clock::now);
    workQueue_.async([weak = weak_from_this(), runner = runner_, readProfiles,
                      completion = std::move(completion)]() mutable {
        const auto result = weak.expired() ? RefreshResult() : readStatus(runner, readProfiles);
        postToMainQueue([weak, result, completion = std::move(completion)] {
            if (const auto self = weak.lock())
                self->finishRefresh(result, completion);
        });
    });
}

// Runs on the work queue; decoding a large network there keeps the panel fluent.
DaemonManager::RefreshResult DaemonManager::readStatus(const CommandRunner& runner,
                                                       bool readProfiles) {
    RefreshResult result;
    result.status = StatusResponse::decode(runner.runCLI({u"status"_s, u"--json"_s}));
    if (result.status)
        result.devices = result.status->devices();
    if (readProfiles)
        result.profiles = parseProfileList(textFromUtf8(runner.runCLI({u"switch"_s, u"--list"_s})));
    return result;
}

void DaemonManager::finishRefresh(const RefreshResult& result, const Completion& completion) {
    if (result.profiles) {
        pruneProfileDetails(*result.profiles);
        published_.set(&DaemonState::profiles, enrichProfiles(*result.profiles));
        refresh_.profilesWereRead(RefreshBookkeeping::Clock::now());
    }
    if (result.status)
        publishStatus(*result.status, result.devices);
    else
        publishStopped();

    const bool forcedOneFollows = refresh_.end();
    if (completion)
        completion();
    if (forcedOneFollows)
        refreshStatus(true);
}

void DaemonManager::publishStopped() {
    published_.set(&DaemonState::backendState, DaemonState::stoppedStatus());
    published_.set(&DaemonState::isConnected, false);
    published_.set(&DaemonState::ipAddress, {});
    published_.set(&DaemonState::hostname, {});
    published_.set(&DaemonState::devices, {});
}

void DaemonManager::publishStatus(const StatusResponse& status,
                                  const QList<DeviceInfo>& sortedDevices) {
    published_.set(&DaemonState::backendState, status.backendState);
    published_.set(&DaemonState::isConnected, status.isConnected());
    published_.set(&DaemonState::ipAddress, status.ipAddress());
    published_.set(&DaemonState::hostname, status.hostname());
    // A poll queued behind a switch or a log-in tells of the new network while the list still marks
    // the old one, whose details it must not replace. The forced refresh that follows reads both.
    if (state().isConnected && refresh_.profilesAreOfThisStatus())
        rememberCurrentProfileDetails(state().ipAddress, state().hostname);
    published_.set(&DaemonState::errorMessage, std::nullopt);
    published_.set(&DaemonState::devices, sortedDevices);
}

} // namespace tarnwick
