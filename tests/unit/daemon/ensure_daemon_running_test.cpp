// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

// What a log-in does about a daemon that does not answer.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::ControllerWorld;
using test::waitUntil;

const CommandLine arguments = {{}, {u"start"_s, u"the job"_s}};

class EnsureDaemonRunning : public testing::Test {
protected:
    EnsureDaemonRunning() {
        // The stub drops its first argument as the tool's socket flag, but records it.
        world_.platform.nudgeDaemon = {nudge_.path(), arguments.arguments};
    }

    /// Logs in on a controller of its own, after its first refresh.
    void logIn() {
        const auto manager = world_.createRefreshed();
        const auto loginsBefore = loginCount();
        bool isDone = false;
        manager->connectWithAuthKey(u"K"_s, u""_s, [&] { isDone = true; });
        EXPECT_TRUE(waitUntil([&] { return isDone; }));
        EXPECT_EQ(loginCount() - loginsBefore, 1);
    }

    /// Has both programs note the time of each call, and makes the pause longer than it takes to
    /// start the next program on a loaded machine.
    void recordTimes() {
        world_.timing.daemonStartPause = pause;
        for (const auto& directory : {world_.tool.directory(), nudge_.directory()}) {
            for (const auto& name : QDir(directory).entryList({u"times-*"_s}))
                QFile::remove(directory + u'/' + name);
        }
        const QByteArray script(test::recordTimes);
        world_.tool.setScript(script + "\n[ \"$1\" != status ] || cat \"$here/answer-status\"");
        nudge_.setScript("set -- nudge; " + script);
    }

    std::chrono::nanoseconds fromNudgeToLogin() const {
        return test::timeOf(world_.tool, "login") - test::timeOf(nudge_, "nudge");
    }

    std::chrono::nanoseconds fromProbeToLogin() const {
        const auto probe = test::timeOf(world_.tool, "status", 1); // after the first refresh's
        return test::timeOf(world_.tool, "login") - probe;
    }

    int loginCount() const {
        int count = 0;
        for (const QStringList& command : world_.tool.commands())
            count += command.first() == u"login"_s ? 1 : 0;
        return count;
    }

    static constexpr auto pause = 1s;
    ControllerWorld world_;
    test::StubTool nudge_;
};

const auto runningNamed = [](const char* hostName) {
    return QByteArray(R"({"BackendState":"Running","Peer":{"k":{"HostName":")") + hostName +
           "\"}}}";
};

TEST_F(EnsureDaemonRunning, ErrorLettersInAPeersNameCountAsNotAnsweringAndCostThePause) {
    for (const char* name : {"terrorBYTE", "ERROR"}) {
        recordTimes();
        world_.answer("status", runningNamed(name));
        const auto before = nudge_.calls().size();
        logIn();
        EXPECT_EQ(nudge_.calls().size() - before, 1) << name;
        EXPECT_GE(fromNudgeToLogin(), pause) << name;
    }
    world_.answer("status", runningNamed("mirrors"));
    const auto before = nudge_.calls().size();
    logIn();
    EXPECT_EQ(nudge_.calls().size(), before);
}

TEST_F(EnsureDaemonRunning, TimedOutProbeStartsTheDaemonAndPausesBeforeTheLogin) {
    recordTimes();
    world_.answer("status", "error: connection timed out");
    logIn();
    EXPECT_EQ(nudge_.calls(), QList<QStringList>({arguments.arguments}));
    EXPECT_GE(fromNudgeToLogin(), pause);
}

TEST_F(EnsureDaemonRunning, DaemonThatAnswersIsLeftAlone) {
    logIn();
    EXPECT_TRUE(nudge_.calls().isEmpty());
}

TEST_F(EnsureDaemonRunning, ProbeThatPrintsNothingStartsTheDaemonAndPausesBeforeTheLogin) {
    recordTimes();
    world_.answer("status", "");
    logIn();
    EXPECT_EQ(nudge_.calls().size(), 1);
    EXPECT_GE(fromNudgeToLogin(), pause);
    EXPECT_EQ(Timing().daemonStartPause, 3s);
}

TEST_F(EnsureDaemonRunning, NudgeRunsAfterTheProbeAndBeforeTheLogin) {
    world_.answer("status", "");
    nudge_.setScript("cp '" + world_.tool.directory().toUtf8() + "/calls' \"$here/seen\"");
    logIn();
    QFile seen(nudge_.directory() + u"/seen"_s);
    ASSERT_TRUE(seen.open(QIODevice::ReadOnly));
    const QByteArray calls = seen.readAll();
    EXPECT_EQ(calls.count("status"), 2) << "the first refresh's and the probe's";
    EXPECT_EQ(calls.count("login"), 0);
}

TEST_F(EnsureDaemonRunning, MissingNudgeIsIgnoredButThePauseTaken) {
    recordTimes();
    world_.answer("status", "");
    world_.platform.nudgeDaemon.program = u"/nonexistent/launchctl"_s;
    logIn();
    EXPECT_GE(fromProbeToLogin(), pause);
}

TEST_F(EnsureDaemonRunning, NudgeThatHangsIsGivenUp) {
    recordTimes();
    world_.answer("status", "");
    world_.timing.loginTimeout = 2s; // the log-in's own, too
    nudge_.setScript("while [ -d \"$here\" ]; do sleep 0.05; done");
    logIn();
    EXPECT_GE(fromProbeToLogin(), 2s + pause);
}

TEST_F(EnsureDaemonRunning, WhatTheNudgePrintsIsNeverShown) {
    world_.answer("status", "no daemon");
    nudge_.setScript("echo error: no such job; echo error >&2; exit 3");
    const auto manager = world_.createRefreshed();
    bool isDone = false;
    manager->connectWithAuthKey(u"K"_s, u""_s, [&] { isDone = true; });
    ASSERT_TRUE(waitUntil([&] { return isDone; }));
    EXPECT_EQ(manager->state().errorMessage, std::nullopt);
}

} // namespace

} // namespace tarnwick
