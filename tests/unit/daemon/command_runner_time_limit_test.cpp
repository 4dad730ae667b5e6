// SPDX-License-Identifier: MIT
#include "daemon/command_runner.h"
#include "support/printing.h"
#include "support/shell.h"
#include "support/stub_tool.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// A tenth of the real limit and of the real step. One good round of several is enough: a loaded
// machine may wake the runner late, but never early.
TEST(CommandRunnerTimeLimit, HangingToolTimesOutWithinOneStepAfterTheLimit) {
    const QTemporaryDir home;
    const test::StubTool tool("exec sleep 60");
    Timing timing;
    timing.commandTimeout /= 10;
    timing.pollStep /= 10;
    ASSERT_EQ(timing.commandTimeout, 1200ms);
    ASSERT_EQ(timing.pollStep, 50ms);
    const CommandRunner runner(tool.path(), {home.path(), home.filePath(u"system.sock"_s)}, timing,
                               {});
    qint64 shortest = std::numeric_limits<qint64>::max();
    for (int round = 0; round < 20 && shortest > 1250; ++round) {
        QElapsedTimer time;
        time.start();
        EXPECT_EQ(runner.runCLI({}), "error: connection timed out");
        shortest = std::min(shortest, time.elapsed());
        EXPECT_GE(time.elapsed(), 1200);
    }
    EXPECT_LE(shortest, 1250);
}

} // namespace

} // namespace tarnwick
