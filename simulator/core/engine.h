// SPDX-License-Identifier: MIT
#pragma once

#include "core/command.h"
#include "core/moment.h"
#include "core/state.h"
#include "core/world.h"
#include "protocol/messages.h"

namespace tarnwick::simulator {

/// What the daemon does: logs in, connects, switches. Saves its state after each change. It has no
/// timers: what depends on time is computed from the moment that a call passes.
class Engine {
public:
    enum class BackendState { NeedsLogin, Stopped, Starting, Running };

    /// Resumes the saved state: a daemon that was connected connects again.
    Engine(World world, QString statePath);

    Reply up(Moment now);
    Reply down();
    Reply login(const Command& command, Moment now);
    Reply switchTo(const QString& id, Moment now);
    Reply remove(const QString& id);

    BackendState backendState(Moment now) const;

    const World& world() const { return world_; }

    const State& state() const { return state_; }

private:
    QString refusal(const Command& command) const;
    Profile& profileFor(const AuthKey& key);

    void save() const { state_.save(statePath_); }

    void start(Moment now);
    void leaveCurrent();

    World world_;
    QString statePath_;
    State state_;
    std::chrono::milliseconds startedAt_{0};
};

/// The state's name in `status --json`.
QString toString(Engine::BackendState state);

} // namespace tarnwick::simulator
