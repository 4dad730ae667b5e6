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
    const bool readProfiles = refresh_.shouldReadProfiles(forceProfiles, profiles().isEmpty(),
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
    result.status = StatusResponse::decode(runner.runCLI({u"status"_s, u"--json"_s}).toUtf8());
    if (result.status)
        result.devices = result.status->devices();
    if (readProfiles)
        result.profiles = parseProfileList(runner.runCLI({u"switch"_s, u"--list"_s}));
    return result;
}

void DaemonManager::finishRefresh(const RefreshResult& result, const Completion& completion) {
    if (result.profiles) {
        pruneProfileDetails(*result.profiles);
        profiles.set(enrichProfiles(*result.profiles));
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
    backendState.set(DaemonState::stoppedStatus());
    isConnected.set(false);
    ipAddress.set({});
    hostname.set({});
    devices.set({});
}

void DaemonManager::publishStatus(const StatusResponse& status,
                                  const QList<DeviceInfo>& sortedDevices) {
    backendState.set(status.backendState);
    isConnected.set(status.isConnected());
    ipAddress.set(status.ipAddress());
    hostname.set(status.hostname());
    // A poll queued behind a switch or a log-in tells of the new network while the list still marks
    // the old one, whose details it must not replace. The forced refresh that follows reads both.
    if (isConnected() && refresh_.profilesAreOfThisStatus())
        rememberCurrentProfileDetails(ipAddress(), hostname());
    errorMessage.set(std::nullopt);
    devices.set(sortedDevices);
}

} // namespace tarnwick
