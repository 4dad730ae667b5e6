// SPDX-License-Identifier: MIT
#pragma once

#include "core/backend_state.h"
#include "core/command.h"
#include "core/daemon_state.h"
#include "core/moment.h"
#include "core/state_store.h"
#include "core/world.h"
#include "protocol/reply.h"

namespace tarnwick::simulator {

/// What the daemon does: logs in, connects, switches. Saves its state after each change.
/// Nothing happens between calls; what depends on time is worked out from the moment given.
class Engine {
public:
    /// Resumes the saved state. A daemon that was connected connects again.
    Engine(World world, StateStore store);

    Reply up(Moment now);
    Reply down();
    Reply login(const Command& command, Moment now);
    Reply switchTo(const QString& id, Moment now);
    Reply remove(const QString& id);

    BackendState backendState(Moment now) const;

    const World& world() const { return world_; }

    const DaemonState& state() const { return state_; }

private:
    QString refusal(const Command& command) const;
    Profile& profileFor(const AuthKey& key);
    void start(Moment now);
    void forgetUnknownNetworks();

    World world_;
    StateStore store_;
    DaemonState state_;
    std::chrono::milliseconds startedAt_{0};
};

} // namespace tarnwick::simulator
