// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::ControllerWorld;
using test::waitUntil;

const QStringList statusCommand = {u"status"_s, u"--json"_s};
const QStringList listCommand = {u"switch"_s, u"--list"_s};

class DaemonManagerTest : public testing::Test {
protected:
    void makeInstalled(const QString& name) const {
        QDir().mkpath(world_.platform.installDir);
        QFile file(world_.platform.installDir + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    qsizetype statusCount() const { return world_.tool.commands().count(statusCommand); }

    ControllerWorld world_;
};

TEST_F(DaemonManagerTest, LoneInstalledDaemonIsNotUsedAndCountsAsNotInstalled) {
    makeInstalled(u"tarnwick-daemon"_s);
    const auto manager = world_.createRefreshed();
    EXPECT_FALSE(manager->state().daemonInstalled);
    EXPECT_FALSE(world_.tool.calls().isEmpty()) << "the bundled tool is the one that runs";
}

TEST_F(DaemonManagerTest, RefreshIsUnderWayAndTheLabelReadsStoppedRightAfterConstruction) {
    world_.closeGate();
    const auto manager = world_.create();
    EXPECT_EQ(manager->state().statusLabel(), u"Stopped"_s);
    EXPECT_EQ(manager->state(), DaemonState());
    EXPECT_EQ(manager->state().headerColor(), HeaderColor::Secondary);
    EXPECT_TRUE(waitUntil([&] { return statusCount() == 1; })) << "though nobody has asked for it";
    EXPECT_EQ(manager->state().statusLabel(), u"Stopped"_s);
}

TEST_F(DaemonManagerTest, StartRunsOneStatusAndOneListAndNothingElse) {
    const auto manager = world_.createRefreshed();
    EXPECT_EQ(world_.tool.commands(), (QList{statusCommand, listCommand}));
    test::runEventLoopFor(50ms);
    EXPECT_EQ(world_.tool.commands().size(), 2);
}

TEST_F(DaemonManagerTest, PollRepeatsAndRereadsTheListOnlyWhenItIsOld) {
    world_.timing.statusPollInterval = 10ms;
    const auto manager = world_.create();
    ASSERT_TRUE(waitUntil([&] { return statusCount() >= 4; }));
    EXPECT_EQ(world_.tool.commands().count(listCommand), 1);
}

TEST_F(DaemonManagerTest, StartingThePollAgainRefreshesAtOnce) {
    const auto manager = world_.createRefreshed();
    const auto before = statusCount();
    manager->startStatusPolling();
    EXPECT_TRUE(test::waitForRefresh(*manager));
    EXPECT_EQ(statusCount(), before + 1);
}

// One timer cannot poll more often than its interval allows, on no machine; four that take turns
// would, on all but a very slow one.
TEST_F(DaemonManagerTest, StartingThePollAgainKeepsOneTimer) {
    constexpr auto interval = 120ms;
    world_.timing.statusPollInterval = interval;
    const auto manager = world_.createRefreshed();
    qsizetype before = 0;
    QElapsedTimer elapsed;
    for (int i = 0; i < 3; ++i) {
        test::runEventLoopFor(interval / 4);
        before = statusCount();
        elapsed.start();
        manager->startStatusPolling();
    }
    constexpr int atOnce = 2; // the last start's own, and one that was just under way
    constexpr int fromTheTimer = 4;
    ASSERT_TRUE(waitUntil([&] { return statusCount() >= before + atOnce + fromTheTimer; }));
    EXPECT_GE(elapsed.elapsed(), (interval * fromTheTimer * 3 / 4).count()) << "it may be early";
}

TEST_F(DaemonManagerTest, PathsStayThoughAnInstallationAppears) {
    const auto manager = world_.createRefreshed();
    makeInstalled(u"tarnwick-daemon"_s);
    makeInstalled(u"tarnwick"_s);
    const auto before = statusCount();
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(statusCount(), before + 1) << "still the bundled tool";
    EXPECT_FALSE(manager->state().daemonInstalled);
    manager->checkDaemonInstalled();
    EXPECT_TRUE(manager->state().daemonInstalled);
}

TEST_F(DaemonManagerTest, FieldsAnnounceBeforeTheyChange) {
    world_.closeGate();
    const auto manager = world_.create();
    QList<DaemonState> seen;
    QObject context;
    QObject::connect(&manager->published(), &PublishedState::objectWillChange, &context,
                     [&] { seen.append(manager->state()); });
    world_.openGate();
    ASSERT_TRUE(waitUntil([&] { return !seen.isEmpty(); }));
    EXPECT_EQ(seen.first(), DaemonState()) << "nothing was stored at the first announcement";
    const DaemonState& last = seen.last();
    EXPECT_TRUE(last.isConnected) << "the devices come last";
    EXPECT_TRUE(last.devices.isEmpty());
    EXPECT_EQ(manager->state().devices.size(), 2);
}

TEST_F(DaemonManagerTest, DestructionWithWorkInFlightIsQuickAndCallsNobody) {
    world_.closeGate();
    auto manager = world_.create();
    int completions = 0;
    const auto complete = [&completions] {
        ++completions;
    };
    ASSERT_TRUE(waitUntil([&] { return statusCount() == 1; }));
    manager->connectWithAuthKey(u"key"_s, u"name"_s, complete);
    manager->switchProfile(u"p2"_s);
    for (int i = 0; i < 100; ++i)
        manager->connect();
    manager.reset(); // would wait for the tool, which waits for the gate, which stays closed
    test::runEventLoopFor(50ms);
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(world_.tool.commands(), QList<QStringList>({statusCommand}))
        << "nothing more is started";
}

TEST_F(DaemonManagerTest, DestructionBeforeTheFirstTurnOfTheEventLoopDoesNothing) {
    bool isCompleted = false;
    auto manager = world_.create();
    manager->refreshStatus(true, [&] { isCompleted = true; });
    manager.reset();
    test::runEventLoopFor(50ms);
    EXPECT_FALSE(isCompleted);
    EXPECT_TRUE(world_.tool.calls().isEmpty());
}

TEST_F(DaemonManagerTest, CompletionMayDestroyTheController) {
    auto manager = world_.createRefreshed();
    manager->refreshStatus(false, [&] { manager.reset(); });
    EXPECT_TRUE(waitUntil([&] { return manager == nullptr; }));
    test::runEventLoopFor(20ms);
}

// A completion may hold what only the main thread may destroy, a widget for instance.
class CompletionOwner : public DaemonManagerTest {
protected:
    std::shared_ptr<int> token() {
        return {new int(0), [this](const int* value) {
                    destroyedOn_ = QThread::currentThread();
                    delete value;
                }};
    }

    QThread* destroyedOn_ = nullptr;
};

TEST_F(CompletionOwner, IsDestroyedOnTheMainThreadAfterTheCall) {
    const auto manager = world_.createRefreshed();
    for (int round = 0; round < 20; ++round) {
        destroyedOn_ = nullptr;
        manager->connectWithAuthKey(u"k"_s, u""_s, [owned = token()] {});
        ASSERT_TRUE(waitUntil([&] { return destroyedOn_ != nullptr; }));
        ASSERT_EQ(destroyedOn_, QThread::currentThread());
        destroyedOn_ = nullptr;
        manager->refreshStatus(true, [owned = token()] {});
        ASSERT_TRUE(waitUntil([&] { return destroyedOn_ != nullptr; }));
        ASSERT_EQ(destroyedOn_, QThread::currentThread());
    }
}

TEST_F(CompletionOwner, IsDestroyedOnTheMainThreadWhenTheControllerGoesFirst) {
    world_.closeGate();
    auto manager = world_.create();
    ASSERT_TRUE(waitUntil([&] { return statusCount() == 1; }));
    manager->connectWithAuthKey(u"k"_s, u""_s, [owned = token()] {});
    manager.reset();
    ASSERT_TRUE(waitUntil([&] { return destroyedOn_ != nullptr; }));
    EXPECT_EQ(destroyedOn_, QThread::currentThread());
}

} // namespace

} // namespace tarnwick
