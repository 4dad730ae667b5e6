// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/shell.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>
#include <QTimer>

#include <gtest/gtest.h>

// Whatever the tool is or prints, the outcome is a state, the window lives, and the next good
// answer puts everything right.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::ControllerWorld;
using test::waitUntil;

struct BadTool {
    const char* name;
    QByteArray script;              ///< Empty: `spoil` does something else to the tool.
    std::optional<QString> message; ///< What a failed "up" shows.
    void (*spoil)(const QString& tool) = nullptr;
};

void PrintTo(const BadTool& tool, std::ostream* out) {
    *out << tool.name;
}

void remove(const QString& tool) {
    ASSERT_TRUE(QFile::remove(tool));
}

void makeNotExecutable(const QString& tool) {
    ASSERT_TRUE(QFile::setPermissions(tool, QFile::ReadOwner | QFile::WriteOwner));
}

void makeDirectory(const QString& tool) {
    remove(tool);
    ASSERT_TRUE(QDir().mkpath(tool));
}

const auto timedOut = u"error: connection timed out"_s;
const auto denied = u"error: Permission denied"_s;

const QList<BadTool> badTools = {
    {"Missing", {}, u"error: No such file or directory"_s, remove},
    {"NotExecutable", {}, denied, makeNotExecutable},
    {"ADirectory", {}, denied, makeDirectory},
    {"Killed", "echo x; kill -KILL $$", std::nullopt},
    {"Slow", "while [ -d \"$here\" ]; do sleep 0.05; done", timedOut},
    {"Silent", "true", std::nullopt},
    {"InvalidUtf8", "printf 'error \\377\\376'", std::nullopt},
    {"HalfADocument", "printf '{\"BackendState\":\"Running\",\"Self\":{\"Onl'", std::nullopt},
    {"AnotherShape", "echo '{\"BackendState\":{\"Running\":true},\"Self\":7}'", std::nullopt},
    {"ThousandNestedArrays", "printf '%01000d%01000d' 0 0 | sed 's/0/[/g'", std::nullopt},
    {"MoreThanAnyPipeHolds", "head -c 20000000 /dev/zero | tr '\\0' x", timedOut},
};

class BadToolTest : public testing::TestWithParam<BadTool> {
protected:
    void spoilTool() {
        // Waiting is pointless where the outcome is certain to be a time-out.
        if (GetParam().message == timedOut)
            world_.timing.commandTimeout = 100ms;
        if (GetParam().spoil != nullptr)
            GetParam().spoil(world_.tool.path());
        else
            world_.tool.setScript(GetParam().script);
    }

    void mendTool() {
        QDir().rmdir(world_.tool.path());
        world_.tool.setScript("[ \"$2\" = --list ] || cat \"$here/answer-status\"");
    }

    ControllerWorld world_;
};

TEST_P(BadToolTest, StatusReadsStoppedAndTheNextGoodAnswerPutsItRight) {
    spoilTool();
    const auto manager = world_.create();
    bool isLoopAlive = false;
    QTimer::singleShot(0, [&] { isLoopAlive = true; });
    ASSERT_TRUE(test::waitForRefresh(*manager));
    EXPECT_TRUE(isLoopAlive);
    EXPECT_EQ(manager->state(), DaemonState());
    EXPECT_TRUE(manager->state().profiles.isEmpty());

    mendTool();
    // A slow machine may run even the good tool into the short limit; not for ever, though.
    ASSERT_TRUE(waitUntil([&] { return test::refresh(*manager) && manager->state().isConnected; }));
    EXPECT_EQ(manager->state().devices.size(), 2);
    EXPECT_EQ(manager->state().errorMessage, std::nullopt);
}

TEST_P(BadToolTest, CommandShowsItsOutputWhenThatTellsOfAnError) {
    if (GetParam().spoil != nullptr && test::runsUnderValgrind())
        GTEST_SKIP() << "valgrind hides why a program does not start";
    spoilTool();
    const auto manager = world_.create();
    ASSERT_TRUE(test::waitForRefresh(*manager));
    manager->connect();
    ASSERT_TRUE(test::waitForRefresh(*manager));
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(manager->state().errorMessage, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(All, BadToolTest, testing::ValuesIn(badTools),
                         [](const auto& tool) { return std::string(tool.param.name); });

TEST(EventLoop, TurnsWhileTheToolHangs) {
    const ControllerWorld world;
    world.closeGate();
    const auto manager = world.create();
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++turns; });
    timer.start(0ms);
    ASSERT_TRUE(waitUntil([&] { return !world.tool.calls().isEmpty() && turns >= 1000; }));
    EXPECT_FALSE(manager->state().isConnected) << "the tool still hangs";
    world.openGate();
    EXPECT_TRUE(waitUntil([&] { return manager->state().isConnected; }));
}

} // namespace

} // namespace tarnwick
