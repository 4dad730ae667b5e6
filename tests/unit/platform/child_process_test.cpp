// SPDX-License-Identifier: MIT
#include "platform/cancellation_token.h"
#include "platform/child_process.h"
#include "platform/environment.h"
#include "support/printing.h"
#include "support/shell.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::outputOf;
using test::shell;

QStringList linesOf(const CommandLine& command) {
    return QString::fromUtf8(outputOf(command)).split(u'\n');
}

TEST(ChildProcess, OutputAndErrorsComeInterleavedAsWritten) {
    EXPECT_EQ(outputOf(shell("echo 1; echo 2 >&2; echo 3; echo 4 >&2")), "1\n2\n3\n4\n");
}

TEST(ChildProcess, ArgumentsArriveExactlyAsGiven) {
    const QStringList arguments = {
        u""_s,
        u" "_s,
        u"two words"_s,
        u"'single' \"double\" `back`"_s,
        u"line\nand\r\n"_s,
        u"--flag=-x"_s,
        u"-"_s,
        u"--"_s,
        u"$HOME $(id) ; rm *"_s,
        u"\\n\\"_s,
        QString(10000, u'x'),
        u"\U0001F600 \u00E9\uFF5E"_s,
    };
    const CommandLine print{u"/usr/bin/printf"_s, QStringList{u"%s\\037"_s} + arguments};
    QStringList printed = QString::fromUtf8(outputOf(print)).split(QChar(0x1f));
    printed.removeLast();
    EXPECT_EQ(printed, arguments);
}

TEST(ChildProcess, EnvironmentIsTheGivenOne) {
    qputenv("TARNWICK_TEST_ENTRY", "kept = \xC3\xA9");
    const auto environment = Environment::ofThisProcess().with("TARNWICK_TEST_OTHER", "new");
    qunsetenv("TARNWICK_TEST_ENTRY");
    auto child = ChildProcess::start({u"/usr/bin/env"_s, {}}, environment);
    const QDeadlineTimer deadline(20s);
    const auto lines = child.readOutput(deadline, CancellationToken()).split('\n');
    EXPECT_TRUE(lines.contains("TARNWICK_TEST_ENTRY=kept = \xC3\xA9"));
    EXPECT_TRUE(lines.contains("TARNWICK_TEST_OTHER=new"));
    EXPECT_TRUE(child.waitForEnd(deadline, 2ms, CancellationToken()));
}

TEST(Environment, VariableThatIsSetReplacesThePresentOne) {
    const auto environment = Environment::ofThisProcess().with("PATH", "/a").with("PATH", "/b");
    QByteArrayList paths;
    for (const char* entry : environment.pointers())
        if (entry != nullptr && QByteArray(entry).startsWith("PATH="))
            paths.append(entry);
    EXPECT_EQ(paths, QByteArrayList{"PATH=/b"});
    EXPECT_EQ(environment.pointers().back(), nullptr);
}

TEST(ChildProcess, StartFailuresAreReported) {
    if (test::runsUnderValgrind())
        GTEST_SKIP() << "valgrind hides why a program does not start";
    const QTemporaryDir directory;
    const QString plain = directory.filePath(u"plain"_s);
    QFile file(plain);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("just text\n");
    file.close();
    EXPECT_EQ(test::startChild({u"/nonexistent/tool"_s, {}}).startError(), ENOENT);
    EXPECT_EQ(test::startChild({plain, {}}).startError(), EACCES);
    EXPECT_EQ(test::startChild({directory.path(), {}}).startError(), EACCES);
    ASSERT_TRUE(QFile::setPermissions(plain, QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(test::startChild({plain, {}}).startError(), ENOEXEC)
        << "no shell takes over what the system cannot run";
}

TEST(ChildProcess, EndedChildTellsWhetherItSucceeded) {
    const auto succeeded = [](const char* script) {
        auto child = test::startChild(shell(script));
        EXPECT_TRUE(child.waitForEnd(QDeadlineTimer(20s), 5ms, CancellationToken()));
        return child.hasSucceeded();
    };
    EXPECT_TRUE(succeeded("exit 0"));
    EXPECT_FALSE(succeeded("exit 3"));
    EXPECT_FALSE(succeeded("kill -KILL $$"));
}

TEST(ChildProcess, TextOfAFailingOrSignalledChildIsKept) {
    EXPECT_EQ(outputOf(shell("echo no; exit 3")), "no\n");
    EXPECT_EQ(outputOf(shell("echo dying; kill -SEGV $$")), "dying\n");
}

TEST(ChildProcess, SignalsAreDefaultAndUnblockedThoughTheParentIgnoresAndBlocksThem) {
    const auto oldPipe = std::signal(SIGPIPE, SIG_IGN);
    const auto oldHangup = std::signal(SIGHUP, SIG_IGN);
    sigset_t blocked;
    sigset_t oldMask;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, &oldMask);
    const auto lines = linesOf({u"/bin/cat"_s, {u"/proc/self/status"_s}});
    pthread_sigmask(SIG_SETMASK, &oldMask, nullptr);
    std::signal(SIGPIPE, oldPipe);
    std::signal(SIGHUP, oldHangup);
    const auto signalSet = [&](const QString& name) {
        return lines.filter(name).value(0).mid(name.size()).trimmed().toULongLong(nullptr, 16);
    };
    constexpr quint64 keptByTheLibrary = 3ULL << 31; // signals 32 and 33
    EXPECT_EQ(signalSet(u"SigBlk:"_s), 0U);
    EXPECT_EQ(signalSet(u"SigIgn:"_s) & ~keptByTheLibrary, 0U);
    EXPECT_FALSE(lines.filter(u"SigIgn:"_s).isEmpty());
}

TEST(ChildProcess, TerminateIsAPoliteSignal) {
    auto child = test::startChild(shell("trap 'echo asked; exit' TERM; echo ready; "
                                        "while :; do sleep 0.01; done"));
    ASSERT_TRUE(child.isRunning());
    QByteArray output;
    ASSERT_TRUE(test::waitUntil([&] {
        output += child.readOutput(QDeadlineTimer(1ms), CancellationToken());
        return output.contains("ready");
    }));
    child.terminate();
    ASSERT_TRUE(child.waitForEnd(QDeadlineTimer(20s), 5ms, CancellationToken()));
    EXPECT_EQ(output + child.readOutput(QDeadlineTimer(20s), CancellationToken()),
              "ready\nasked\n");
}

TEST(ChildProcess, ReadingEndsAtTheDeadlineThoughAGrandchildHoldsThePipe) {
    auto child = test::startChild(shell("echo text; sleep 300 & echo $!; exit 0"));
    ASSERT_TRUE(child.waitForEnd(QDeadlineTimer(20s), 5ms, CancellationToken()));
    const auto lines = child.readOutput(QDeadlineTimer(50ms), CancellationToken()).split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], "text");
    ASSERT_EQ(kill(lines[1].toInt(), SIGKILL), 0) << "it was still there";
}

TEST(ChildProcess, StopEndsWaitingAndReadingAtOnce) {
    const CancellationToken cancellation;
    auto child = test::startChild(shell("exec sleep 300"));
    cancellation.cancel();
    EXPECT_FALSE(child.waitForEnd(QDeadlineTimer::Forever, 1h, cancellation));
    EXPECT_EQ(child.readOutput(QDeadlineTimer::Forever, cancellation), "");
    child.terminate();
    EXPECT_TRUE(child.waitForEnd(QDeadlineTimer(20s), 5ms, CancellationToken()));
}

TEST(ChildProcess, MovedFromOwnsNothing) {
    auto first = test::startChild(shell("echo x"));
    auto second = std::move(first);
    EXPECT_FALSE(first.isRunning()); // NOLINT(bugprone-use-after-move): tested here
    EXPECT_TRUE(second.waitForEnd(QDeadlineTimer(20s), 5ms, CancellationToken()));
    EXPECT_EQ(second.readOutput(QDeadlineTimer(20s), CancellationToken()), "x\n");
    EXPECT_FALSE(second.release()) << "it has been reaped already";
}

TEST(ChildReaper, CollectsThoseThatHaveEndedAndKeepsTheRest) {
    auto ended = test::startChild(shell("exit 0"));
    auto running = test::startChild(shell("exec sleep 300"));
    ChildReaper reaper;
    reaper.adopt(*ended.release());
    const pid_t sleeper = *running.release();
    reaper.adopt(sleeper);
    EXPECT_TRUE(test::waitUntil([&] {
        reaper.reap();
        return reaper.count() == 1;
    }));
    kill(sleeper, SIGKILL);
    EXPECT_TRUE(test::waitUntil([&] {
        reaper.reap();
        return reaper.count() == 0;
    }));
    EXPECT_EQ(kill(sleeper, 0), -1) << "no zombie is left";
}

} // namespace

} // namespace tarnwick
