// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/publishing.h"
#include "support/waiting.h"

#include <QThread>

#include <gtest/gtest.h>

#include <thread>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::ControllerWorld;
using test::waitUntil;

const QStringList statusCommand = {u"status"_s, u"--json"_s};
const QStringList listCommand = {u"switch"_s, u"--list"_s};

class StatusRefresh : public testing::Test {
protected:
    QList<QStringList> commandsSince(qsizetype first) const {
        return world_.tool.commands().mid(first);
    }

    ControllerWorld world_;
};

TEST_F(StatusRefresh, SecondOfTwoCallsIsCompletedAtOnceWithoutAnotherStatusCommand) {
    const auto manager = world_.createRefreshed();
    const auto before = world_.tool.commands().size();
    world_.closeGate();
    bool isFirstDone = false;
    bool isSecondDone = false;
    manager->refreshStatus(false, [&] { isFirstDone = true; });
    manager->refreshStatus(false, [&] { isSecondDone = true; });
    ASSERT_TRUE(waitUntil([&] { return isSecondDone; }));
    EXPECT_FALSE(isFirstDone);
    world_.openGate();
    ASSERT_TRUE(waitUntil([&] { return isFirstDone; }));
    test::runEventLoopFor(30ms);
    EXPECT_EQ(commandsSince(before), QList<QStringList>({statusCommand}));
}

TEST_F(StatusRefresh, ForcedCallsDuringARefreshCauseOneMoreThatRereadsTheProfiles) {
    const auto manager = world_.createRefreshed();
    const auto before = world_.tool.commands().size();
    world_.closeGate();
    QStringList completions;
    manager->refreshStatus(false, [&] { completions.append(u"running"_s); });
    for (int i = 0; i < 3; ++i)
        manager->refreshStatus(true, [&] { completions.append(u"forced"_s); });
    ASSERT_TRUE(waitUntil([&] { return completions.size() == 3; }));
    EXPECT_EQ(completions.count(u"forced"_s), 3) << "answered without waiting";
    world_.openGate();
    ASSERT_TRUE(waitUntil([&] { return commandsSince(before).size() == 3; }));
    test::runEventLoopFor(100ms); // for a fourth that must not come
    EXPECT_EQ(commandsSince(before), (QList{statusCommand, statusCommand, listCommand}));
    EXPECT_EQ(completions.size(), 4) << "each exactly once";
}

TEST_F(StatusRefresh, EveryRefreshRereadsAnEmptyProfileList) {
    world_.answer("list", "ID Network Account\n");
    const auto manager = world_.createRefreshed();
    ASSERT_TRUE(test::refresh(*manager));
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(world_.tool.commands().count(listCommand), 3);
    world_.answer("list", ControllerWorld::profileList());
    ASSERT_TRUE(test::refresh(*manager));
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(world_.tool.commands().count(listCommand), 4);
}

TEST_F(StatusRefresh, TimedOutStatusYieldsStoppedAndLeavesTheMessage) {
    const auto manager = world_.createRefreshed();
    ASSERT_TRUE(manager->state().isConnected);
    test::publishError(*manager, u"earlier"_s);
    world_.answer("status", "error: connection timed out");
    ASSERT_TRUE(test::refresh(*manager));
    DaemonState expected;
    expected.profiles = manager->state().profiles;
    expected.errorMessage = u"earlier"_s;
    EXPECT_EQ(manager->state(), expected);
    EXPECT_EQ(manager->state().statusLabel(), u"Stopped"_s);
}

TEST_F(StatusRefresh, SuccessfulRefreshClearsTheMessage) {
    const auto manager = world_.createRefreshed();
    test::publishError(*manager, u"earlier"_s);
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(manager->state().errorMessage, std::nullopt);
}

TEST_F(StatusRefresh, RunningWithAnOfflineSelfRemembersNothing) {
    world_.answer("status", R"({"BackendState":"Running","Self":{"HostName":"laptop",
        "Online":false,"TailscaleIPs":["100.64.0.2"]}})");
    const auto manager = world_.createRefreshed();
    EXPECT_FALSE(manager->state().isConnected);
    EXPECT_EQ(manager->state().ipAddress, u"100.64.0.2"_s);
    EXPECT_TRUE(world_.storedDetails().isEmpty());
}

TEST_F(StatusRefresh, SuccessPublishesEveryField) {
    const auto manager = world_.createRefreshed();
    EXPECT_TRUE(manager->state().isConnected);
    EXPECT_EQ(manager->state().backendState, u"Running"_s);
    EXPECT_EQ(manager->state().statusLabel(), u"Connected"_s);
    EXPECT_EQ(manager->state().headerColor(), HeaderColor::Green);
    EXPECT_EQ(manager->state().ipAddress, u"100.64.0.2"_s);
    EXPECT_EQ(manager->state().hostname, u"laptop"_s);
    ASSERT_EQ(manager->state().devices.size(), 2);
    EXPECT_EQ(manager->state().devices[0].nodeKey, u"k1"_s);
    EXPECT_EQ(manager->state().devices[1].hostName, u"beta"_s);
    EXPECT_EQ(manager->state().profiles,
              (QList<NetworkProfile>{
                  {u"p1"_s, u"harbor"_s, u"mira"_s, true, u"100.64.0.2"_s, u"laptop"_s},
                  {u"p2"_s, u"kite"_s, u"mira l"_s, false, {}, {}}}));
}

TEST_F(StatusRefresh, AnswerThatIsTheSameAsBeforeIsPublishedAllTheSame) {
    const auto manager = world_.createRefreshed();
    const DaemonState expected = manager->state();
    test::publishError(*manager, u"earlier"_s);
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(manager->state(), expected) << "twice in a row";
    for (const QByteArray& other : {QByteArray("rubbish"), ControllerWorld::stoppedStatus()}) {
        world_.answer("status", other);
        ASSERT_TRUE(test::refresh(*manager));
        ASSERT_TRUE(test::refresh(*manager));
        EXPECT_FALSE(manager->state().isConnected);
        world_.answer("status", ControllerWorld::connectedStatus());
        ASSERT_TRUE(test::refresh(*manager));
        EXPECT_EQ(manager->state(), expected) << other.constData();
    }
}

TEST_F(StatusRefresh, ForcedCallRereadsAFreshList) {
    const auto manager = world_.createRefreshed();
    world_.answer("list", "header\np9 net someone\n");
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(manager->state().profiles.size(), 2);
    ASSERT_TRUE(test::refresh(*manager, true));
    EXPECT_EQ(manager->state().profiles,
              (QList<NetworkProfile>{{u"p9"_s, u"net"_s, u"someone"_s, false, {}, {}}}));
}

TEST_F(StatusRefresh, OldListIsReread) {
    world_.timing.profileRefreshInterval = 1ms;
    const auto manager = world_.createRefreshed();
    test::runEventLoopFor(5ms);
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(world_.tool.commands().count(listCommand), 2);
}

TEST_F(StatusRefresh, FailedProfileCommandReplacesTheListByWhatItsOutputYields) {
    const auto manager = world_.createRefreshed();
    world_.answer("list", "error: no daemon");
    ASSERT_TRUE(test::refresh(*manager, true));
    EXPECT_TRUE(manager->state().profiles.isEmpty());
    EXPECT_TRUE(manager->state().isConnected);
}

TEST_F(StatusRefresh, MayBeCalledFromAnyThreadAndCompletesOnTheMainThread) {
    const auto manager = world_.createRefreshed();
    QThread* completedOn = nullptr;
    std::thread([&] {
        manager->refreshStatus(false, [&] { completedOn = QThread::currentThread(); });
    }).join();
    ASSERT_TRUE(waitUntil([&] { return completedOn != nullptr; }));
    EXPECT_EQ(completedOn, QThread::currentThread());
}

TEST_F(StatusRefresh, FollowUpStartsAfterTheCompletion) {
    const auto manager = world_.createRefreshed();
    const auto before = world_.tool.commands().size();
    world_.closeGate();
    qsizetype commandsAtCompletion = 0;
    manager->refreshStatus(false, [&] {
        test::runEventLoopFor(20ms); // a follow-up that had begun would run now
        commandsAtCompletion = commandsSince(before).size();
    });
    bool isForcedAnswered = false;
    manager->refreshStatus(true, [&] { isForcedAnswered = true; });
    ASSERT_TRUE(waitUntil([&] { return isForcedAnswered; }));
    world_.openGate();
    ASSERT_TRUE(waitUntil([&] { return commandsAtCompletion != 0; }));
    EXPECT_EQ(commandsAtCompletion, 1);
    EXPECT_TRUE(waitUntil([&] { return commandsSince(before).size() == 3; }));
}

} // namespace

} // namespace tarnwick
