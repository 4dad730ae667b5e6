// SPDX-License-Identifier: MIT
#include "simulated_world.h"
#include "support/printing.h"
#include "support/waiting.h"

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::SimulatedWorld;
using test::waitUntil;

class DaemonLifetime : public SimulatedWorld {};

TEST_F(DaemonLifetime, DaemonThatStopsReadsStoppedAndItsCommandsTellWhy) {
    daemon_.logIn(u"twkey-harbor-good"_s);
    const auto manager = create();
    ASSERT_TRUE(manager->state().isConnected);
    ASSERT_EQ(daemon_.stop(), 0);
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(manager->state().statusLabel(), u"Stopped"_s);
    EXPECT_TRUE(manager->state().devices.isEmpty());
    EXPECT_EQ(manager->state().errorMessage, std::nullopt);
    manager->connect();
    EXPECT_TRUE(waitUntil([&] {
        return manager->state().errorMessage.value_or(u""_s).contains(u"failed to connect"_s);
    }));
}

TEST_F(DaemonLifetime, RestartedDaemonIsFoundAgainByThePoll) {
    daemon_.logIn(u"twkey-harbor-good"_s);
    world_.timing.statusPollInterval = 20ms;
    const auto manager = create();
    ASSERT_TRUE(manager->state().isConnected);
    daemon_.stop();
    EXPECT_TRUE(waitUntil([&] { return manager->state().statusLabel() == u"Stopped"_s; }));
    ASSERT_TRUE(daemon_.start());
    EXPECT_TRUE(waitUntil([&] { return manager->state().isConnected; }))
        << "it remembers its log-in";
    EXPECT_EQ(manager->state().errorMessage, std::nullopt);
}

// The tool is told that the connection broke in the middle of its command.
TEST_F(DaemonLifetime, DaemonStoppedHalfWayThroughACommand) {
    daemon_.logIn(u"twkey-harbor-good"_s);
    daemon_.setFaults({u"hang@up"_s});
    const auto manager = create();
    manager->connect();
    ASSERT_TRUE(waitUntil([&] {
        const auto log = daemon_.log();
        return !log.isEmpty() && log.last().value(u"command"_s).toString() == u"up"_s;
    }));
    manager->disconnect();
    ASSERT_EQ(daemon_.stop(), 0);
    EXPECT_TRUE(waitUntil([&] {
        return manager->state().errorMessage.has_value() &&
               manager->state().statusLabel() == u"Stopped"_s;
    }));
    EXPECT_TRUE(hasCommandError(manager->state().errorMessage.value_or(u""_s).toUtf8()));
    ASSERT_TRUE(daemon_.start());
    ASSERT_TRUE(waitUntil([&] { return test::refresh(*manager) && manager->state().isConnected; }));
    EXPECT_EQ(manager->state().errorMessage, std::nullopt);
}

TEST_F(DaemonLifetime, DaemonThatHangsTimesOutAndIsRightAgainAfterwards) {
    daemon_.logIn(u"twkey-harbor-good"_s);
    world_.timing.commandTimeout = 300ms;
    const auto manager = create();
    for (const auto& fault : {u"hang"_s, u"garbage"_s, u"flood"_s, u"error"_s, u"crash"_s}) {
        daemon_.setFaults({fault});
        ASSERT_TRUE(test::refresh(*manager));
        EXPECT_EQ(manager->state().statusLabel(), u"Stopped"_s) << fault.toStdString();
        daemon_.setFaults({u"none"_s});
        EXPECT_TRUE(waitUntil([&] {
            return test::refresh(*manager) && manager->state().isConnected;
        })) << fault.toStdString();
    }
}

} // namespace

} // namespace tarnwick
