// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

namespace tarnwick::test {

/// What a controller publishes to. It alone may set its state; a test that needs a state which no
/// daemon has just reported takes the right to.
inline PublishedState& publishedBy(const DaemonManager& daemon) {
    return const_cast<PublishedState&>(daemon.published());
}

inline void publishError(const DaemonManager& daemon, const std::optional<QString>& message) {
    publishedBy(daemon).set(&DaemonState::errorMessage, message);
}

/// Publishes every field of `state`, as a refresh would.
inline void publish(const DaemonManager& daemon, const DaemonState& state) {
    PublishedState& published = publishedBy(daemon);
    published.set(&DaemonState::backendState, state.backendState);
    published.set(&DaemonState::isConnected, state.isConnected);
    published.set(&DaemonState::ipAddress, state.ipAddress);
    published.set(&DaemonState::hostname, state.hostname);
    published.set(&DaemonState::devices, state.devices);
    published.set(&DaemonState::profiles, state.profiles);
    published.set(&DaemonState::errorMessage, state.errorMessage);
    published.set(&DaemonState::daemonInstalled, state.daemonInstalled);
}

} // namespace tarnwick::test
