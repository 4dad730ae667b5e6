// SPDX-License-Identifier: MIT
#include "platform/cancellation_token.h"
#include "platform/child_process.h"
#include "support/printing.h"
#include "support/shell.h"

#include <QByteArrayList>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

// Descriptors: which of ours a child inherits, and the child's own standard streams.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::outputOf;
using test::shell;

QByteArrayList descriptorsInAChild() {
    // ls itself opens one more, the directory that it lists.
    auto names = outputOf(shell("exec ls /proc/self/fd")).trimmed().split('\n');
    EXPECT_EQ(names.takeLast(), "3") << "the directory that ls reads";
    return names;
}

TEST(ChildProcessDescriptors, ChildGetsItsStandardStreamsAlone) {
    const int withCloseOnExec = open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int without = open("/dev/null", O_RDONLY); // NOLINT(android-cloexec-open): meant so
    const int farAway = fcntl(without, F_DUPFD, 200);
    ASSERT_GE(farAway, 200);
    EXPECT_EQ(descriptorsInAChild(), (QByteArrayList{"0", "1", "2"}));
    close(withCloseOnExec);
    close(without);
    close(farAway);
}

TEST(ChildProcessDescriptors, SilentChildWritesToTheNullDevice) {
    const auto child = [] {
        auto started = test::startChild(
            shell("[ /dev/stdout -ef /dev/null ] && [ /dev/stderr -ef /dev/null ]"),
            ChildProcess::Output::Discarded);
        EXPECT_TRUE(started.waitForEnd(QDeadlineTimer(20'000), std::chrono::milliseconds(5),
                                       CancellationToken()));
        return started;
    }();
    EXPECT_TRUE(child.hasSucceeded());
}

// Runs `check` in a copy of this process that has the given streams closed, as a careless launcher
// leaves them. Returns the copy's exit status: 0 when `check` held.
int inAProcessWithout(const std::vector<int>& streams, bool (*check)()) {
    const pid_t copy = fork();
    if (copy == 0) {
        for (const int stream : streams)
            close(stream);
        _exit(check() ? 0 : 1);
    }
    int status = -1;
    waitpid(copy, &status, 0);
    return status;
}

bool outputArrives() {
    return outputOf(shell("echo out; echo err >&2")) == "out\nerr\n" &&
           outputOf(shell("true")).isEmpty();
}

TEST(ChildProcessDescriptors, ProcessStartedWithoutStandardStreamsRunsToolsAllTheSame) {
    EXPECT_EQ(inAProcessWithout({}, outputArrives), 0);
    EXPECT_EQ(inAProcessWithout({STDIN_FILENO}, outputArrives), 0);
    EXPECT_EQ(inAProcessWithout({STDOUT_FILENO}, outputArrives), 0);
    EXPECT_EQ(inAProcessWithout({STDERR_FILENO}, outputArrives), 0);
    EXPECT_EQ(inAProcessWithout({STDIN_FILENO, STDOUT_FILENO}, outputArrives), 0);
    EXPECT_EQ(inAProcessWithout({STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}, outputArrives), 0);
}

TEST(ChildProcessDescriptors, OutOfDescriptorsIsAStartFailure) {
    const auto check = [] {
        while (open("/dev/null", O_RDONLY | O_CLOEXEC) >= 0) {
        }
        return !test::startChild({u"/bin/true"_s, {}}).isStarted();
    };
    EXPECT_EQ(inAProcessWithout({}, check), 0);
}

} // namespace

} // namespace tarnwick
