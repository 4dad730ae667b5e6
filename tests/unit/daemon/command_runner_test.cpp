// SPDX-License-Identifier: MIT
#include "daemon/command_runner.h"
#include "support/printing.h"
#include "support/shell.h"
#include "support/stub_tool.h"
#include "support/waiting.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class CommandRunnerTest : public testing::Test {
protected:
    CommandRunnerTest() {
        timing_.commandTimeout = 40s;
        timing_.pollStep = 2ms;
    }

    CommandRunner runner() const { return {tool_.path(), paths_, timing_, cancellation_}; }

    QByteArray outputOf(const QByteArray& script) {
        tool_.setScript(script);
        return runner().runCLI({u"status"_s});
    }

    QTemporaryDir home_;
    DaemonPaths paths_{home_.path(), home_.filePath(u"system.sock"_s)};
    test::StubTool tool_;
    Timing timing_;
    CancellationToken cancellation_;
};

const QByteArray timedOut = "error: connection timed out";

TEST_F(CommandRunnerTest, SystemSocketComesFirstElseThePerUserOneWhoseDirectoryIsMade) {
    runner().runCLI({u"up"_s});
    EXPECT_EQ(
        tool_.calls().last(),
        (QStringList{u"--socket="_s + home_.path() + u"/.tarnwick/tarnwick.sock"_s, u"up"_s}));
    EXPECT_TRUE(QDir(home_.filePath(u".tarnwick"_s)).exists());

    QFile socket(paths_.systemSocket);
    ASSERT_TRUE(socket.open(QIODevice::WriteOnly));
    runner().runCLI({u"up"_s});
    EXPECT_EQ(tool_.calls().last(), (QStringList{u"--socket="_s + paths_.systemSocket, u"up"_s}));

    ASSERT_TRUE(socket.remove()); // the daemon has gone again
    runner().runCLI({u"up"_s});
    EXPECT_EQ(tool_.calls().last().first(),
              u"--socket="_s + home_.path() + u"/.tarnwick/tarnwick.sock"_s);
}

TEST_F(CommandRunnerTest, ToolThatSleepsPastTheLimitTimesOutAndIsAskedToEnd) {
    tool_.setScript("trap 'touch \"$here/asked\"; exit' TERM; touch \"$here/ready\"\n"
                    "while [ -d \"$here\" ]; do sleep 0.01; done");
    const QDir directory(tool_.directory());
    // On a slow machine the tool may need longer than the limit to be ready for the signal.
    auto limit = 50ms;
    for (; !directory.exists(u"ready"_s) && limit < 60s; limit *= 2) {
        QElapsedTimer time;
        time.start();
        EXPECT_EQ(runner().runCLIWithTimeout({u"up"_s}, limit), timedOut);
        EXPECT_GE(time.elapsed(), limit.count());
    }
    EXPECT_TRUE(test::waitUntil([&] { return directory.exists(u"asked"_s); }));
}

TEST_F(CommandRunnerTest, ErrorInAnyCaseOrResponseStatusInExactlyThatCaseIsAnError) {
    for (const char* text : {"error", "Error: x", "some ERROR here", "terrorist",
                             "Response status: 404 Not Found", "x\nResponse status"})
        EXPECT_TRUE(hasCommandError(text)) << text;
    for (const char* text : {"response status: 404", "RESPONSE STATUS", "Response  status",
                             "failure", "err or", "Success."})
        EXPECT_FALSE(hasCommandError(text)) << text;
}

TEST_F(CommandRunnerTest, EmptyOutputIsReturnedAsEmptyAndIsNoError) {
    EXPECT_EQ(outputOf("exit 7"), "");
    EXPECT_FALSE(hasCommandError(""));
}

TEST_F(CommandRunnerTest, BrowserThatIsAlreadySetBecomesEcho) {
    qputenv("BROWSER", "firefox");
    runner().runCLI({u"login"_s});
    qunsetenv("BROWSER");
    EXPECT_EQ(tool_.environment().filter(u"BROWSER="_s), QStringList{u"BROWSER=echo"_s});
}

TEST_F(CommandRunnerTest, LimitsAndPausesAreTheseByDefault) {
    const Timing timing;
    EXPECT_EQ(timing.statusPollInterval, 5s);
    EXPECT_EQ(timing.profileRefreshInterval, 30s);
    EXPECT_EQ(timing.commandTimeout, 12s);
    EXPECT_EQ(timing.loginTimeout, 30s);
    EXPECT_EQ(timing.probeTimeout, 5s);
    EXPECT_EQ(timing.pollStep, 500ms);
    EXPECT_EQ(timing.switchPause, 800ms);
    EXPECT_EQ(timing.daemonStartPause, 3s);
    EXPECT_EQ(timing.refreshAfterInstall, 2s);
}

TEST_F(CommandRunnerTest, BothStreamsAreReturnedUntrimmed) {
    EXPECT_EQ(outputOf("printf '  a\\n'; printf 'b' >&2; printf '\\n\\n '"), "  a\nb\n\n ");
    EXPECT_EQ(outputOf("printf '\\357\\273\\277x'"), "\uFEFFx");
}

TEST_F(CommandRunnerTest, OutputThatIsNotUtf8IsEmpty) {
    for (const char* bytes : {"ok \\377", "\\300\\200", "\\355\\240\\200", "half \\303"})
        EXPECT_EQ(outputOf(QByteArray("printf '") + bytes + '\''), "") << bytes;
    EXPECT_EQ(outputOf("printf '\\360\\237\\230\\200 \\303\\251'"), "\U0001F600 \u00E9");
}

TEST_F(CommandRunnerTest, TextOfAToolThatFailsOrIsKilledIsReturned) {
    EXPECT_EQ(outputOf("echo no such profile; exit 1"), "no such profile\n");
    EXPECT_EQ(outputOf("echo about to die; kill -KILL $$"), "about to die\n");
}

TEST_F(CommandRunnerTest, ToolThatCannotBeStartedYieldsTheSystemsReason) {
    if (test::runsUnderValgrind())
        GTEST_SKIP() << "valgrind hides why a program does not start";
    const CommandRunner missing(u"/nonexistent/tool"_s, paths_, timing_, cancellation_);
    EXPECT_EQ(missing.runCLI({}), "error: No such file or directory");
    const CommandRunner directory(home_.path(), paths_, timing_, cancellation_);
    EXPECT_EQ(directory.runCLI({}), "error: Permission denied");
    EXPECT_TRUE(hasCommandError(missing.runCLI({})));
}

TEST_F(CommandRunnerTest, FloodBlocksTheToolUntilTheLimitAndReadsAsTimedOut) {
    tool_.setScript("while [ -d \"$here\" ]; do printf '%01000d' 0; done");
    EXPECT_EQ(runner().runCLIWithTimeout({}, 100ms), timedOut);
}

TEST_F(CommandRunnerTest, WhatThePipeHoldsIsReturnedWhole) {
    EXPECT_EQ(outputOf("head -c 1000000 /dev/zero | tr '\\0' x"), QByteArray(1'000'000, 'x'));
}

TEST_F(CommandRunnerTest, GrandchildThatHoldsThePipeCostsNoMoreThanTheLimit) {
    tool_.setScript("(trap '' TERM; while [ -d \"$here\" ]; do sleep 0.05; done) & echo text");
    // The test's own time limit bounds the wait: the grandchild lives as long as the test.
    QByteArray output = timedOut;
    for (auto limit = 200ms; output == timedOut && limit < 60s; limit *= 2)
        output = runner().runCLIWithTimeout({}, limit);
    EXPECT_EQ(output, "text\n");
}

TEST_F(CommandRunnerTest, ToolReplacedBetweenAndDuringRunsIsNoticed) {
    EXPECT_EQ(outputOf("echo first"), "first\n");
    EXPECT_EQ(outputOf("echo second"), "second\n");
    tool_.setScript("mv \"$0\" \"$0.old\"; printf '#!/bin/sh\\necho new' > \"$0\"; "
                    "chmod +x \"$0\"; echo old");
    EXPECT_EQ(runner().runCLI({}), "old\n");
    EXPECT_EQ(runner().runCLI({}), "new\n");
}

TEST_F(CommandRunnerTest, OnceStoppedNothingIsStarted) {
    cancellation_.cancel();
    EXPECT_EQ(runner().runCLI({u"up"_s}), timedOut);
    runner().runSilently({tool_.path(), {}}, 40s);
    runner().pause(1h);
    EXPECT_TRUE(tool_.calls().isEmpty());
}

TEST_F(CommandRunnerTest, SilentRunWaitsForItsProgramAndIgnoresAMissingOne) {
    const QString mark = home_.filePath(u"mark"_s);
    const CommandLine slow = {u"/bin/sh"_s, {u"-c"_s, u"sleep 0.05; touch "_s + mark}};
    runner().runSilently(slow, 40s);
    EXPECT_TRUE(QFile::exists(mark));
    runner().runSilently({u"/nonexistent/program"_s, {}}, 40s);
}

TEST_F(CommandRunnerTest, SilentRunThatHangsIsAskedToEndAndCollectedByTheNextRun) {
    const int before = test::childCount();
    const CommandRunner runner = this->runner();
    runner.runSilently(test::shell("exec sleep 60"), 20ms);
    EXPECT_TRUE(test::waitUntil([&] {
        runner.runCLI({});
        return test::childCount() == before;
    }));
}

} // namespace

} // namespace tarnwick
