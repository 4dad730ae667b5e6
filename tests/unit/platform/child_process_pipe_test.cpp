// SPDX-License-Identifier: MIT
#include "platform/cancellation_token.h"
#include "platform/child_process.h"
#include "support/printing.h"
#include "support/shell.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// How much a child can print before it ends, while nobody reads.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr int kibibyte = 1024;

int largestPipe() {
    QFile file(u"/proc/sys/fs/pipe-max-size"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().trimmed().toInt();
}

/// A child that prints so many bytes.
ChildProcess printing(int bytes) {
    return test::startChild(
        {u"/usr/bin/head"_s, {u"-c"_s, QString::number(bytes), u"/dev/zero"_s}});
}

/// Whether a child that prints so many bytes ends although nobody reads, and they all arrive.
bool holds(int bytes, std::chrono::milliseconds limit = 10s) {
    auto child = printing(bytes);
    if (!child.waitForEnd(QDeadlineTimer(limit), 2ms, CancellationToken())) {
        child.terminate();
        return false;
    }
    return child.readOutput(QDeadlineTimer(20s), CancellationToken()).size() == bytes;
}

TEST(ChildProcessPipe, HoldsWhatTheSystemGrantsAnOrdinaryUser) {
    EXPECT_TRUE(holds(largestPipe()));
}

TEST(ChildProcessPipe, OneByteMoreBlocksTheChildUntilSomebodyReads) {
    auto child = printing(largestPipe() + 1);
    EXPECT_FALSE(child.waitForEnd(QDeadlineTimer(500ms), 2ms, CancellationToken()));
    EXPECT_EQ(child.readOutput(QDeadlineTimer(20s), CancellationToken()).size(), largestPipe() + 1);
    EXPECT_TRUE(child.waitForEnd(QDeadlineTimer(20s), 2ms, CancellationToken()));
}

/// The kernel limits the pipes of an ordinary user together.
class UsersPipes {
public:
    /// Takes all that this user may have, the last mebibyte in pipes of 64 KiB.
    UsersPipes() {
        take(1024 * kibibyte);
        release(1);
        take(64 * kibibyte);
    }

    /// Gives back the last ones.
    void release(size_t count) {
        for (size_t i = 0; i < 2 * count; ++i) {
            close(pipes_.back());
            pipes_.pop_back();
        }
    }

private:
    void take(int size) {
        int ends[2] = {-1, -1};
        while (pipe2(ends, O_CLOEXEC) == 0 && fcntl(ends[1], F_SETPIPE_SZ, size) >= size)
            pipes_.insert(pipes_.end(), std::begin(ends), std::end(ends));
        close(ends[0]);
        close(ends[1]);
    }

    std::vector<int> pipes_;
};

/// Runs `check` in a copy of this process that belongs to a user who has no other process.
int asAnotherUser(bool (*check)()) {
    const pid_t copy = fork();
    if (copy == 0) {
        constexpr uid_t nobodyElse = 1'900'000'000;
        const uid_t user = nobodyElse + static_cast<uid_t>(getpid());
        _exit(setgid(user) == 0 && setuid(user) == 0 && check() ? 0 : 1);
    }
    int status = -1;
    waitpid(copy, &status, 0);
    return status;
}

/// Runs the current test as root, for a user who may become that without a password; where not,
/// none.
std::optional<int> asRoot() {
    if (std::system("sudo -n true 2>/dev/null") != 0)
        return std::nullopt;
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const auto program = std::filesystem::read_symlink("/proc/self/exe").string();
    // Root's counters of coverage would be closed to the user's tests.
    const auto command = "sudo -n env GCOV_PREFIX=/tmp/root-counters '" + program +
                         "' --gtest_filter=" + test->test_suite_name() + "." + test->name();
    return std::system(command.c_str());
}

TEST(ChildProcessPipe, IsSmallerWhenTheUsersOtherPipesLeaveNoMore) {
    if (getuid() != 0) {
        const auto status = asRoot();
        if (!status)
            GTEST_SKIP() << "needs root: it would take the pipes of this user's other programs";
        EXPECT_EQ(*status, 0);
        return;
    }
    const auto check = [] {
        UsersPipes pipes;
        pipes.release(4);
        return holds(256 * kibibyte) && !holds(256 * kibibyte + 1, 500ms);
    };
    EXPECT_EQ(asAnotherUser(check), 0);
}

TEST(ChildProcessPipe, WorksWhenTheUsersOtherPipesLeaveTheLeast) {
    if (getuid() != 0) {
        const auto status = asRoot();
        if (!status)
            GTEST_SKIP() << "needs root: it would take the pipes of this user's other programs";
        EXPECT_EQ(*status, 0);
        return;
    }
    const auto check = [] {
        const UsersPipes pipes;
        return holds(4 * kibibyte);
    };
    EXPECT_EQ(asAnotherUser(check), 0);
}

} // namespace

} // namespace tarnwick
