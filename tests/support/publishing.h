// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

namespace tarnwick::test {

/// Publishes every field of `state`, as a refresh would.
inline void publish(DaemonManager& daemon, const DaemonState& state) {
    daemon.backendState.set(state.backendState);
    daemon.isConnected.set(state.isConnected);
    daemon.ipAddress.set(state.ipAddress);
    daemon.hostname.set(state.hostname);
    daemon.devices.set(state.devices);
    daemon.profiles.set(state.profiles);
    daemon.errorMessage.set(state.errorMessage);
    daemon.daemonInstalled.set(state.daemonInstalled);
}

} // namespace tarnwick::test
