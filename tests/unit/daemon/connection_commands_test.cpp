// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "platform/service_addresses.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/publishing.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::ControllerWorld;
using test::waitUntil;
using Commands = QList<QStringList>;

const QStringList statusCommand = {u"status"_s, u"--json"_s};
const QStringList listCommand = {u"switch"_s, u"--list"_s};

class ConnectionCommands : public testing::Test {
protected:
    ConnectionCommands() { world_.answer("status", ControllerWorld::stoppedStatus()); }

    /// Runs `command` on a settled controller and returns the tool's runs up to the end of the
    /// refresh that follows. The message that the command left is in messageBeforeRefresh_.
    template <typename Command>
    Commands commandsOf(Command command) {
        const auto first = world_.tool.commands().size();
        bool hasRefreshed = false; // what is announced once the list was read is the refresh
        QObject context;
        QObject::connect(&manager_->published(), &PublishedState::objectWillChange, &context, [&] {
            hasRefreshed = hasRefreshed || world_.tool.commands().mid(first).contains(listCommand);
        });
        command(*manager_);
        EXPECT_TRUE(waitUntil([&] { return hasRefreshed; }));
        return world_.tool.commands().mid(first);
    }

    Commands loginCommands(const QString& key, const QString& name) {
        bool isDone = false;
        const auto commands = commandsOf([&](DaemonManager& manager) {
            manager.connectWithAuthKey(key, name, [&] { isDone = true; });
        });
        EXPECT_TRUE(isDone);
        return commands;
    }

    ControllerWorld world_;
    std::shared_ptr<DaemonManager> manager_ = world_.createRefreshed();
};

QStringList loginArguments(const QString& server, const QString& key, const QString& name) {
    QStringList arguments = {u"login"_s, u"--login-server="_s + server, u"--authkey"_s, key};
    return name.isEmpty() ? arguments : arguments << u"--hostname"_s << name;
}

TEST_F(ConnectionCommands, LoginWithAnEmptyOrBlankHostNamePassesNone) {
    const QString server = serviceAddresses().prodLoginServer;
    for (const auto& name : {u""_s, u"  \t\n "_s})
        EXPECT_EQ(loginCommands(u"K"_s, name),
                  (Commands{statusCommand, loginArguments(server, u"K"_s, u""_s), statusCommand,
                            listCommand}));
}

TEST_F(ConnectionCommands, LoginArgumentsForKeyKAndHostNameWorkMac) {
    EXPECT_EQ(loginCommands(u"K"_s, u"Work Mac"_s).value(1),
              (QStringList{u"login"_s, u"--login-server="_s + serviceAddresses().prodLoginServer,
                           u"--authkey"_s, u"K"_s, u"--hostname"_s, u"work-mac"_s}));
}

TEST_F(ConnectionCommands, FailedLoginAfterWhichTheStatusIsConnectedLeavesNoMessage) {
    world_.answer("login", "error: already logged in");
    world_.answer("status", ControllerWorld::connectedStatus());
    loginCommands(u"K"_s, u""_s);
    EXPECT_TRUE(manager_->state().isConnected);
    EXPECT_EQ(manager_->state().errorMessage, std::nullopt);
}

TEST_F(ConnectionCommands, DisconnectWhoseOutputTellsOfAnErrorLeavesTheMessage) {
    world_.answer("down", "error: access denied");
    world_.answer("status", "no daemon"); // a refresh that fails leaves the message alone, too
    EXPECT_EQ(commandsOf([](DaemonManager& manager) { manager.disconnect(); }),
              (Commands{{u"down"_s}, statusCommand, listCommand}));
    EXPECT_EQ(manager_->state().errorMessage, std::nullopt);
    test::publishError(*manager_, u"earlier"_s);
    commandsOf([](DaemonManager& manager) { manager.disconnect(); });
    EXPECT_EQ(manager_->state().errorMessage, u"earlier"_s);
}

TEST_F(ConnectionCommands, RemovedProfileIsGoneBeforeTheRefreshReturns) {
    world_.storeDetails({{u"p1"_s, {u"1.1.1.1"_s, u"a"_s}}, {u"p2"_s, {u"2.2.2.2"_s, u"b"_s}}});
    manager_ = world_.createRefreshed();
    test::publishError(*manager_, u"earlier"_s);
    ASSERT_EQ(manager_->state().profiles.size(), 2);
    const auto statusCount = [&] {
        return world_.tool.commands().count(statusCommand);
    };
    const auto before = statusCount();
    world_.tool.setScript("[ \"$1\" != status ] || while [ -d \"$here\" ]; do sleep 0.01; done");
    manager_->removeProfile(u"p2"_s);
    ASSERT_TRUE(waitUntil([&] { return statusCount() > before; })) << "the refresh has begun";
    ASSERT_EQ(manager_->state().profiles.size(), 1);
    EXPECT_EQ(manager_->state().profiles[0].id, u"p1"_s);
    EXPECT_EQ(manager_->state().errorMessage, std::nullopt);
    EXPECT_EQ(world_.storedDetails().keys(), QStringList{u"p1"_s});
    EXPECT_TRUE(world_.tool.commands().contains(
        QStringList{u"debug"_s, u"localapi"_s, u"DELETE"_s, u"/localapi/v0/profiles/p2"_s}));
}

TEST_F(ConnectionCommands, SwitchThatFailsBeforeAnUpThatSucceedsReportsNothing) {
    world_.answer("switch", "error: no such profile");
    world_.answer("status", "no daemon"); // a good one would clear the message that must not be
    EXPECT_EQ(commandsOf([](DaemonManager& manager) { manager.switchProfile(u"p9"_s); }),
              (Commands{{u"switch"_s, u"p9"_s}, {u"up"_s}, statusCommand, listCommand}));
    EXPECT_EQ(manager_->state().errorMessage, std::nullopt);
}

// The remaining case, which server a name chooses, is in login_server_test.cpp.

TEST_F(ConnectionCommands, ConnectRunsUpAndShowsItsErrorUntilTheNextGoodRefresh) {
    EXPECT_EQ(commandsOf([](DaemonManager& manager) { manager.connect(); }),
              (Commands{{u"up"_s}, statusCommand, listCommand}));
    EXPECT_EQ(manager_->state().errorMessage, std::nullopt);

    world_.answer("up", "  Error: not logged in\n");
    world_.answer("status", "no daemon");
    commandsOf([](DaemonManager& manager) { manager.connect(); });
    EXPECT_EQ(manager_->state().errorMessage, u"  Error: not logged in\n"_s)
        << "as the tool printed it";
    world_.answer("status", ControllerWorld::stoppedStatus());
    ASSERT_TRUE(test::refresh(*manager_));
    EXPECT_EQ(manager_->state().errorMessage, std::nullopt);
}

TEST_F(ConnectionCommands, SwitchWhoseUpFailsShowsItsOutput) {
    world_.answer("up", "Response status: 500");
    world_.answer("status", "no daemon");
    commandsOf([](DaemonManager& manager) { manager.switchProfile(u"p2"_s); });
    EXPECT_EQ(manager_->state().errorMessage, u"Response status: 500"_s);
}

TEST_F(ConnectionCommands, SwitchPausesBeforeUp) {
    world_.timing.switchPause = 1s; // longer than a loaded machine takes to start the next
    manager_ = world_.createRefreshed();
    world_.tool.setScript(test::recordTimes);
    EXPECT_EQ(commandsOf([](DaemonManager& manager) { manager.switchProfile(u"p2"_s); }),
              (Commands{{u"switch"_s, u"p2"_s}, {u"up"_s}, statusCommand, listCommand}));
    EXPECT_GE(test::timeOf(world_.tool, "up") - test::timeOf(world_.tool, "switch"), 1s);
    EXPECT_EQ(Timing().switchPause, 800ms);
}

TEST_F(ConnectionCommands, LoginThatFailsShowsItsOutputAgainAfterTheRefresh) {
    world_.answer("login", "error: invalid key\n");
    QList<std::optional<QString>> messages;
    QObject context;
    QObject::connect(&manager_->published(), &PublishedState::objectWillChange, &context, [&] {
        if (messages.isEmpty() || messages.last() != manager_->state().errorMessage)
            messages.append(manager_->state().errorMessage);
    });
    std::optional<QString> atCompletion;
    manager_->connectWithAuthKey(u"K"_s, u""_s,
                                 [&] { atCompletion = manager_->state().errorMessage; });
    ASSERT_TRUE(waitUntil([&] { return atCompletion.has_value(); }));
    EXPECT_EQ(atCompletion, u"error: invalid key\n"_s);
    EXPECT_EQ(manager_->state().errorMessage, u"error: invalid key\n"_s);
    EXPECT_EQ(messages.value(1), u"error: invalid key\n"_s) << "shown before the refresh";
    EXPECT_TRUE(messages.contains(std::nullopt)) << "and cleared by it in between";
}

TEST_F(ConnectionCommands, LoginThatSucceedsButIsNotConnectedYetShowsNothing) {
    world_.answer("login", "Success.\n");
    loginCommands(u"K"_s, u""_s);
    EXPECT_FALSE(manager_->state().isConnected);
    EXPECT_EQ(manager_->state().errorMessage, std::nullopt);
}

TEST_F(ConnectionCommands, CleanedHostNameChoosesTheServer) {
    EXPECT_EQ(loginCommands(u"K"_s, u" Dev Box\n"_s).value(1),
              loginArguments(serviceAddresses().devLoginServer, u"K"_s, u"dev-box"_s));
    EXPECT_EQ(loginCommands(u"K"_s, u"  My  Laptop "_s).value(1),
              loginArguments(serviceAddresses().prodLoginServer, u"K"_s, u"my--laptop"_s));
}

TEST_F(ConnectionCommands, FailedRemovalShowsItsOutputAndTouchesNothing) {
    world_.answer("debug", "Response status: 404 Not Found\n");
    const auto before = manager_->state().profiles;
    const auto first = world_.tool.commands().size();
    manager_->removeProfile(u"p2"_s);
    ASSERT_TRUE(waitUntil([&] { return manager_->state().errorMessage.has_value(); }));
    EXPECT_EQ(manager_->state().errorMessage, u"Response status: 404 Not Found\n"_s);
    test::runEventLoopFor(50ms);
    EXPECT_EQ(manager_->state().profiles, before);
    EXPECT_EQ(world_.tool.commands().size(), first + 1) << "no refresh follows";
}

struct Strange {
    const char* name;
    QString text;
};

class StrangeText : public ConnectionCommands, public testing::WithParamInterface<Strange> {};

TEST_P(StrangeText, IsPassedAsOneArgumentExactly) {
    const QString text = GetParam().text;
    EXPECT_EQ(loginCommands(text, u""_s).value(1),
              loginArguments(serviceAddresses().prodLoginServer, text, u""_s));
    EXPECT_EQ(commandsOf([&](DaemonManager& manager) { manager.switchProfile(text); }).value(0),
              (QStringList{u"switch"_s, text}));
    EXPECT_EQ(
        commandsOf([&](DaemonManager& manager) { manager.removeProfile(text); }).value(0),
        (QStringList{u"debug"_s, u"localapi"_s, u"DELETE"_s, u"/localapi/v0/profiles/"_s + text}));
}

INSTANTIATE_TEST_SUITE_P(
    All, StrangeText,
    testing::Values(Strange{"Empty", u""_s}, Strange{"Blanks", u" two  words "_s},
                    Strange{"SingleQuotes", u"'single'"_s},
                    Strange{"DoubleQuotes", u"\"double\""_s},
                    Strange{"Newlines", u"line\nline\r\n"_s},
                    Strange{"LeadingDashes", u"--authkey"_s}, Strange{"TwoDashes", u"--"_s},
                    Strange{"ShellSyntax", u"$(id) `id` ${HOME} ; & | > * ? ~"_s},
                    Strange{"Backslashes", u"\\n\\\\"_s},
                    Strange{"Emoji", u"\U0001F600\uFF5E\u00E9"_s},
                    Strange{"ControlCharacters", u"\x01\x1b[31m\x7f"_s},
                    Strange{"TenThousandCharacters", QString(10000, u'x')}),
    [](const auto& strange) { return std::string(strange.param.name); });

TEST_F(ConnectionCommands, LimitsAreThoseOfTheProbeTheLoginAndTheRest) {
    // Each step hangs in turn; were its limit another one's, the test would run into its own.
    const auto hang = [](const char* command) {
        return QByteArray("[ \"$1\" != ") + command +
               " ] || while [ -d \"$here\" ]; do sleep 0.05; done";
    };
    world_.timing.commandTimeout = 1h;
    world_.timing.probeTimeout = 100ms;
    world_.timing.loginTimeout = 1h;
    auto manager = world_.createRefreshed();
    world_.tool.setScript(hang("status"));
    manager->connectWithAuthKey(u"K"_s, u""_s);
    EXPECT_TRUE(waitUntil([&] { // the refresh after it may have begun already
        const auto commands = world_.tool.commands();
        return std::any_of(commands.begin(), commands.end(), [](const QStringList& command) {
            return command.first() == u"login"_s;
        });
    }));
    manager.reset();

    world_.timing.probeTimeout = 1h;
    world_.timing.loginTimeout = 100ms;
    world_.tool.setScript("true");
    manager = world_.createRefreshed();
    world_.tool.setScript(hang("login"));
    manager->connectWithAuthKey(u"K"_s, u""_s);
    EXPECT_TRUE(waitUntil(
        [&] { return manager->state().errorMessage == u"error: connection timed out"_s; }));
    manager.reset();

    world_.timing.commandTimeout = 100ms;
    world_.timing.loginTimeout = 1h;
    world_.tool.setScript(hang("up"));
    manager = world_.create();
    manager->connect();
    EXPECT_TRUE(waitUntil(
        [&] { return manager->state().errorMessage == u"error: connection timed out"_s; }));
}

} // namespace

} // namespace tarnwick
