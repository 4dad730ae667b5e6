// SPDX-License-Identifier: MIT
#pragma once

#include "support/controller_world.h"
#include "support/simulated_daemon.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace tarnwick::test {

/// A controller whose tool talks to a simulated daemon on a socket of its own.
class SimulatedWorld : public testing::Test {
protected:
    explicit SimulatedWorld(double startingSeconds = 0);

    std::shared_ptr<DaemonManager> create() const;

    /// The id of the profile that the daemon has in `network`, "" when it has none.
    QString profileIn(const QString& network) const;

    /// Logs in as a user does, and waits for the outcome.
    void logIn(DaemonManager& manager, const QString& key, const QString& name = {}) const;

    /// Waits until the commands so far and the refresh that follows them have taken effect.
    bool settle(DaemonManager& manager) const;

    SimulatedDaemon daemon_;
    ControllerWorld world_;
};

} // namespace tarnwick::test
