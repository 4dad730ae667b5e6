// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::ControllerWorld;
using test::waitUntil;
using Outcome = std::optional<QString>;

class CommandOutcome : public testing::Test {
protected:
    CommandOutcome() {
        world_.answer("status", ControllerWorld::stoppedStatus());
        manager_ = world_.createRefreshed();
        manager_->setCommandEnded([this](const Outcome& failure) { outcomes_ += failure; });
    }

    bool waitForOutcomes(const QList<Outcome>& wanted) {
        return waitUntil([&] { return outcomes_ == wanted; });
    }

    ControllerWorld world_;
    std::shared_ptr<DaemonManager> manager_;
    QList<Outcome> outcomes_;
};

} // namespace

TEST_F(CommandOutcome, OfConnectingAndSwitching) {
    manager_->connect();
    ASSERT_TRUE(waitForOutcomes({std::nullopt}));
    world_.answer("up", "error: no\n network");
    manager_->connect();
    ASSERT_TRUE(waitForOutcomes({std::nullopt, u"error: no network"_s}));
    manager_->switchProfile(u"p2"_s);
    ASSERT_TRUE(waitForOutcomes({std::nullopt, u"error: no network"_s, u"error: no network"_s}));
}

TEST_F(CommandOutcome, OfRemoval) {
    manager_->removeProfile(u"p1"_s);
    ASSERT_TRUE(waitForOutcomes({std::nullopt}));
    world_.answer("debug", "error: in use");
    manager_->removeProfile(u"p2"_s);
    ASSERT_TRUE(waitForOutcomes({std::nullopt, u"error: in use"_s}));
}

TEST_F(CommandOutcome, OfALogInNeverRepeatsTheKey) {
    world_.answer("login", "error: invalid key: \"twkey-secret\"");
    manager_->connectWithAuthKey(u"twkey-secret"_s, {});
    ASSERT_TRUE(waitForOutcomes({u"error: invalid key: \"•••\""_s}));
}

TEST_F(CommandOutcome, OfALogInThatConnectsAllTheSameIsNoFailure) {
    world_.answer("login", "error: already there");
    world_.answer("status", ControllerWorld::connectedStatus());
    manager_->connectWithAuthKey(u"twkey-secret"_s, {});
    ASSERT_TRUE(waitForOutcomes({std::nullopt}));
}

TEST_F(CommandOutcome, OfAFailedDisconnectionAndOfRefreshesIsNotReported) {
    world_.answer("down", "error: no daemon");
    world_.answer("status", "error: no daemon");
    manager_->disconnect();
    bool isRefreshed = false;
    manager_->refreshStatus(true, [&] { isRefreshed = true; });
    ASSERT_TRUE(waitUntil([&] { return isRefreshed; }));
    world_.answer("up", "error: last");
    manager_->connect();
    ASSERT_TRUE(waitForOutcomes({u"error: last"_s}));
    world_.answer("down", "");
    manager_->disconnect();
    ASSERT_TRUE(waitForOutcomes({u"error: last"_s, std::nullopt}));
}

} // namespace tarnwick
