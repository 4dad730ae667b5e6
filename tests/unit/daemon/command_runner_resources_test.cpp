// SPDX-License-Identifier: MIT
#include "daemon/command_runner.h"
#include "support/printing.h"
#include "support/shell.h"
#include "support/stub_tool.h"
#include "support/waiting.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

// What a runner leaves behind: descriptors and children.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class CommandRunnerResources : public testing::Test {
protected:
    CommandRunner runnerOf(const QString& program, Timing::Milliseconds pollStep = 1ms) const {
        Timing timing;
        timing.commandTimeout = 40s;
        timing.pollStep = pollStep;
        return {program, {home_.path(), home_.filePath(u"system.sock"_s)}, timing, {}};
    }

    /// Children beyond those that earlier tests have left to this process.
    int newChildren() const { return test::childCount() - earlierChildren_; }

    QTemporaryDir home_;
    test::StubTool tool_;

private:
    const int earlierChildren_ = test::childCount();
};

TEST_F(CommandRunnerResources, ThousandRunsLeaveTheDescriptorsThatThereWere) {
    const CommandRunner runner = runnerOf(u"/bin/true"_s, 0ms);
    runner.runCLI({});
    const auto before = test::openDescriptors();
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(runner.runCLI({}), "");
    EXPECT_EQ(test::openDescriptors(), before);
    EXPECT_EQ(newChildren(), 0);
}

TEST_F(CommandRunnerResources, RunsThatFailToStartOrTimeOutLeaveNoDescriptorsEither) {
    tool_.setScript("exec sleep 30");
    const CommandRunner missing = runnerOf(u"/nonexistent/tool"_s);
    const CommandRunner slow = runnerOf(tool_.path());
    const auto before = test::openDescriptors();
    for (int i = 0; i < 20; ++i) {
        missing.runCLI({});
        slow.runCLIWithTimeout({}, 1ms);
    }
    EXPECT_EQ(test::openDescriptors(), before);
}

TEST_F(CommandRunnerResources, NoZombieOutlivesTheNextRun) {
    const CommandRunner runner = runnerOf(tool_.path());
    tool_.setScript("exec sleep 30");
    for (int i = 0; i < 5; ++i)
        runner.runCLIWithTimeout({}, 1ms);
    ASSERT_TRUE(test::waitUntil([] { return test::childCount() == test::zombieCount(); }))
        << "all of them have ended";
    tool_.setScript("true");
    runner.runCLI({});
    EXPECT_EQ(newChildren(), 0);
}

TEST_F(CommandRunnerResources, ChildThatEndsDuringTheNextRunIsCollectedByItToo) {
    const CommandRunner runner = runnerOf(tool_.path());
    tool_.setScript("trap '' TERM; echo $$ > \"$here/id\"\n"
                    "while [ -d \"$here\" ] && [ ! -e \"$here/go\" ]; do sleep 0.01; done");
    // On a slow machine it may be asked to end before it can refuse.
    for (auto limit = 50ms; test::childCount() == test::zombieCount() && limit < 60s; limit *= 2)
        runner.runCLIWithTimeout({}, limit);
    ASSERT_EQ(test::childCount() - test::zombieCount(), 1);

    tool_.setScript("touch \"$here/go\"; stat=/proc/$(cat \"$here/id\")/stat\n"
                    "while [ -e \"$stat\" ] && ! grep -q ') Z ' \"$stat\"; do sleep 0.01; done");
    runner.runCLI({});
    EXPECT_EQ(newChildren(), 0);
}

TEST_F(CommandRunnerResources, ToolGetsNoDescriptorOfOursThoughOneIsNotCloseOnExec) {
    const int descriptor = dup(STDERR_FILENO); // NOLINT(android-cloexec-dup): meant so
    tool_.setScript("exec ls -1 /proc/self/fd");
    EXPECT_EQ(runnerOf(tool_.path()).runCLI({}), "0\n1\n2\n3\n") << "3 is the directory itself";
    close(descriptor);
}

} // namespace

} // namespace tarnwick
