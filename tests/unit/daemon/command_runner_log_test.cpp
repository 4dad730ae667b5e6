// SPDX-License-Identifier: MIT
#include "daemon/command_runner.h"
#include "support/log_capture.h"
#include "support/shell.h"
#include "support/stub_tool.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

// What a run of the tool leaves in the log.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class CommandRunnerLog : public testing::Test {
protected:
    CommandRunner runnerOf(const QString& program) const {
        Timing timing;
        timing.pollStep = 2ms;
        return {program, {home_.path(), home_.filePath(u"system.sock"_s)}, timing, {}};
    }

    /// Runs a tool that does `script` and returns what was logged.
    QByteArray logOf(const QByteArray& script, const QStringList& arguments = {u"status"_s},
                     Timing::Milliseconds limit = 40s) {
        const test::LogCapture log(u"*=true"_s);
        tool_.setScript(script);
        runnerOf(tool_.path()).runCLIWithTimeout(arguments, limit);
        return log.text();
    }

    QTemporaryDir home_;
    test::StubTool tool_;
};

TEST_F(CommandRunnerLog, IsSilentUnlessSwitchedOn) {
    const test::LogCapture log;
    runnerOf(tool_.path()).runCLI({u"status"_s});
    runnerOf(u"/nonexistent/tool"_s).runCLI({u"status"_s});
    EXPECT_EQ(log.text(), "");
}

TEST_F(CommandRunnerLog, ShowsArgumentsTimeAndOutcome) {
    const QByteArray log = logOf("echo error: no daemon; exit 1", {u"status"_s, u"--json"_s});
    EXPECT_TRUE(log.startsWith("tarnwick.tool: --socket=" + home_.path().toUtf8())) << log.data();
    EXPECT_TRUE(log.contains(" status --json [")) << log.data();
    EXPECT_TRUE(log.contains(R"( ms] failed, 17 bytes: "error: no daemon\n")")) << log.data();
    EXPECT_EQ(log.count('\n'), 1);
    EXPECT_TRUE(logOf("true").contains("succeeded, 0 bytes"));
}

TEST_F(CommandRunnerLog, ShowsWhyThereIsNoOutput) {
    EXPECT_TRUE(logOf("exec sleep 60", {u"up"_s}, 20ms).contains(" ms] timed out"));
    EXPECT_TRUE(logOf("printf 'ok \\377'").contains("4 bytes: not UTF-8"));
    if (test::runsUnderValgrind())
        GTEST_SKIP() << "valgrind hides why a program does not start";
    const test::LogCapture log(u"tarnwick.tool=true"_s);
    runnerOf(u"/nonexistent/tool"_s).runCLI({u"up"_s});
    EXPECT_TRUE(log.text().contains("could not start: No such file or directory"));
}

TEST_F(CommandRunnerLog, HidesTheAuthKeyInTheArgumentsAndInTheOutput) {
    const QStringList login = {u"login"_s, u"--authkey"_s, u"twkey-secret"_s, u"--hostname"_s,
                               u"box"_s};
    for (const char* script : {"echo \"error: bad key $*\"", "echo \"$*\" | tr a-z A-Z",
                               "echo \"$*\"; printf '\\377'"}) {
        const QByteArray log = logOf(script, login);
        EXPECT_TRUE(log.contains("--authkey (hidden) --hostname box [")) << log.data();
        EXPECT_FALSE(log.toLower().contains("secret")) << log.data();
    }
    EXPECT_FALSE(logOf("exec sleep 60", login, 20ms).contains("secret"));
}

} // namespace

} // namespace tarnwick
