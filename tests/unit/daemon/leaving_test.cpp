// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QFile>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::ControllerWorld;
using test::waitUntil;
using Commands = QList<QStringList>;

const QStringList statusCommand = {u"status"_s, u"--json"_s};

/// A controller that is left while its tool does what a test makes it do.
class Leaving : public testing::Test {
protected:
    Leaving() {
        // Long enough to tell being left from a limit that has passed.
        world_.timing.switchPause = 1h;
        world_.timing.leavingTimeout = 20s;
        manager_ = world_.createRefreshed();
        first_ = world_.tool.commands().size();
    }

    ~Leaving() override { release(); }

    /// From now on this command of the tool waits; with what it does then, a piece of shell.
    void hold(const QByteArray& command, const QByteArray& then = {}) {
        touch("hold");
        world_.tool.setScript("[ \"$1\" != " + command + " ] || { " +
                              "while [ -e \"$here/hold\" ]; do sleep 0.01; done; " + then + "\n }");
    }

    void release() const { QFile::remove(file("hold")); }

    void touch(const char* name) const {
        QFile out(file(name));
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    }

    bool exists(const char* name) const { return QFile::exists(file(name)); }

    /// Runs of the tool since the controller was ready.
    Commands commands() const { return world_.tool.commands().mid(first_); }

    bool waitForCommands(const Commands& wanted) const {
        return waitUntil([&] { return commands() == wanted; });
    }

    void leave() {
        manager_->leave();
        manager_.reset();
    }

    ControllerWorld world_;
    std::shared_ptr<DaemonManager> manager_;

private:
    QString file(const char* name) const {
        return world_.tool.directory() + u'/' + QLatin1StringView(name);
    }

    qsizetype first_ = 0;
};

TEST_F(Leaving, InThePauseOfASwitchBringsTheNetworkUp) {
    manager_->switchProfile(u"p2"_s);
    ASSERT_TRUE(waitForCommands({{u"switch"_s, u"p2"_s}}));
    leave();
    EXPECT_TRUE(waitForCommands({{u"switch"_s, u"p2"_s}, {u"up"_s}}));
}

TEST_F(Leaving, StartsWhatWaitsBehindAPollInItsOrderAndNoFurtherPoll) {
    hold("status");
    manager_->refreshStatus(true);
    ASSERT_TRUE(waitForCommands({statusCommand}));
    manager_->switchProfile(u"p2"_s);
    manager_->disconnect();
    manager_->refreshStatus(true);
    manager_->removeProfile(u"p1"_s);
    manager_->connect();
    leave();
    EXPECT_TRUE(
        waitForCommands({statusCommand,
                         {u"switch"_s, u"p2"_s},
                         {u"up"_s},
                         {u"down"_s},
                         {u"debug"_s, u"localapi"_s, u"DELETE"_s, u"/localapi/v0/profiles/p1"_s},
                         {u"up"_s}}));
    test::runEventLoopFor(50ms);
    EXPECT_EQ(commands().size(), 6);
}

TEST_F(Leaving, StartsALogInWithoutLookingForTheDaemon) {
    hold("status");
    manager_->refreshStatus();
    ASSERT_TRUE(waitForCommands({statusCommand}));
    manager_->connectWithAuthKey(u"key"_s, {});
    leave();
    ASSERT_TRUE(waitUntil([&] { return commands().size() == 2; }));
    EXPECT_EQ(commands().last().first(), u"login"_s);
}

TEST_F(Leaving, TheNextCommandBeginsWhenTheOneBeforeHasEnded) {
    world_.tool.setScript("case $1 in switch) sleep 0.2; : > \"$here/switched\" ;;\n"
                          "up) [ ! -e \"$here/switched\" ] || : > \"$here/in-order\" ;; esac");
    manager_->switchProfile(u"p2"_s);
    ASSERT_TRUE(waitForCommands({{u"switch"_s, u"p2"_s}}));
    leave();
    EXPECT_TRUE(waitUntil([&] { return exists("in-order"); }));
}

TEST_F(Leaving, ACommandThatHangsDoesNotKeepTheNextFromBeginning) {
    world_.timing.leavingTimeout = 50ms;
    manager_ = world_.createRefreshed();
    const auto before = commands().size();
    hold("switch");
    manager_->switchProfile(u"p2"_s);
    ASSERT_TRUE(waitUntil([&] { return commands().size() == before + 1; }));
    leave();
    EXPECT_TRUE(waitUntil([&] { return commands().last() == QStringList{u"up"_s}; }));
    EXPECT_TRUE(exists("hold")) << "the first still hangs";
}

TEST_F(Leaving, AToolThatSpeaksBeforeItsWorkDoesItAllTheSame) {
    hold("up", "echo one; echo two >&2; : > \"$here/done\"");
    manager_->connect();
    ASSERT_TRUE(waitForCommands({{u"up"_s}}));
    leave();
    release();
    EXPECT_TRUE(waitUntil([&] { return exists("done"); }));
}

TEST_F(Leaving, AToolThatFloodsEndsInTheEnd) {
    hold("up", "yes; : > \"$here/done\"");
    manager_->connect();
    ASSERT_TRUE(waitForCommands({{u"up"_s}}));
    leave();
    release();
    EXPECT_TRUE(waitUntil([&] { return exists("done"); }));
}

TEST_F(Leaving, WithNothingToStartDoesNotWait) {
    hold("up");
    manager_->connect();
    ASSERT_TRUE(waitForCommands({{u"up"_s}}));
    const auto started = std::chrono::steady_clock::now();
    leave();
    EXPECT_LT(std::chrono::steady_clock::now() - started, world_.timing.leavingTimeout);
}

} // namespace

} // namespace tarnwick
