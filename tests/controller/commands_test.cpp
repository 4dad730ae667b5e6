// SPDX-License-Identifier: MIT
#include "simulated_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <gmock/gmock.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::SimulatedWorld;
using test::waitUntil;

class Commands : public SimulatedWorld {
protected:
    /// Waits for what the refresh after a command shows; only that refresh can bring it about.
    static bool becomes(const std::function<bool()>& condition) { return waitUntil(condition); }

    static QString message(const DaemonManager& manager) {
        return manager.state().errorMessage.value_or(u""_s);
    }

    /// Every message that is shown from now on, those included that a refresh takes away again.
    void recordMessages(DaemonManager& manager) {
        QObject::connect(&manager.published(), &PublishedState::objectWillChange, &context_,
                         [&] { messages_.append(message(manager)); });
    }

    static QStringList networks(const DaemonManager& manager) {
        QStringList names;
        for (const NetworkProfile& profile : manager.state().profiles)
            names.append(profile.tailnet);
        return names;
    }

    /// A controller that is logged in to harbor-labs and, last and therefore now, to kite-studio.
    std::shared_ptr<DaemonManager> createWithTwoProfiles() {
        daemon_.logIn(u"twkey-harbor-good"_s);
        daemon_.logIn(u"twkey-kite-good"_s);
        return create();
    }

    QStringList messages_;
    QObject context_;
};

TEST_F(Commands, NewDaemonNeedsALogin) {
    const auto manager = create();
    EXPECT_EQ(manager->state().statusLabel(), u"Needs Login"_s);
    EXPECT_TRUE(manager->state().profiles.isEmpty());
}

TEST_F(Commands, GoodKeyLogsInUnderTheCleanedName) {
    const auto manager = create();
    logIn(*manager, u"twkey-harbor-good"_s, u" My Laptop "_s);
    EXPECT_TRUE(manager->state().isConnected);
    EXPECT_EQ(manager->state().errorMessage, std::nullopt);
    EXPECT_EQ(manager->state().hostname, u"my-laptop"_s);
    EXPECT_EQ(manager->state().ipAddress, u"100.72.14.3"_s);
    EXPECT_FALSE(manager->state().devices.isEmpty());
    ASSERT_EQ(manager->state().profiles.size(), 1);
    EXPECT_TRUE(manager->state().profiles[0].isCurrent);
    EXPECT_EQ(manager->state().profiles[0].loginName, u"mira@harborlabs.example"_s);
    EXPECT_EQ(world_.storedDetails(), (ProfileDetailsMap{{profileIn(u"harbor-labs"_s),
                                                          {u"100.72.14.3"_s, u"my-laptop"_s}}}));
}

TEST_F(Commands, WrongKeyShowsTheToolsOwnWords) {
    const auto manager = create();
    logIn(*manager, u"twkey-wrong"_s);
    EXPECT_EQ(message(*manager),
              u"error: the control server refused the log-in: unknown auth key\n"_s);
    EXPECT_FALSE(manager->state().isConnected);
    EXPECT_TRUE(manager->state().profiles.isEmpty());
}

TEST_F(Commands, ExpiredKeyShowsTheToolsOwnWords) {
    const auto manager = create();
    logIn(*manager, u"twkey-harbor-expired"_s);
    EXPECT_EQ(message(*manager),
              u"error: the control server refused the log-in: the auth key has expired\n"_s);
    EXPECT_FALSE(manager->state().isConnected);
}

TEST_F(Commands, SwitchChangesTheNetwork) {
    const auto manager = createWithTwoProfiles();
    ASSERT_EQ(manager->state().hostname, u"guest-editor"_s);
    manager->switchProfile(profileIn(u"harbor-labs"_s));
    EXPECT_TRUE(becomes([&] { return manager->state().hostname == u"mira-workstation"_s; }));
    EXPECT_TRUE(manager->state().isConnected);
    EXPECT_EQ(message(*manager), u""_s);
    EXPECT_EQ(world_.storedDetails().size(), 2) << "both have been current and connected";
    for (const NetworkProfile& profile : manager->state().profiles) {
        EXPECT_EQ(profile.isCurrent, profile.tailnet == u"harbor-labs"_s);
        EXPECT_FALSE(profile.ipAddress.isEmpty());
    }
}

TEST_F(Commands, SwitchToAProfileThatIsGoneStaysAndReportsNothing) {
    const auto manager = createWithTwoProfiles();
    recordMessages(*manager);
    manager->switchProfile(u"no such id"_s);
    ASSERT_TRUE(test::refresh(*manager)); // after it: the tool's runs keep their order
    EXPECT_EQ(manager->state().hostname, u"guest-editor"_s);
    EXPECT_THAT(messages_, testing::Each(u""_s));
    EXPECT_FALSE(messages_.isEmpty()) << "the refresh, too, announces what it changes";
}

TEST_F(Commands, RemovingTheCurrentProfileLeavesTheOther) {
    const auto manager = createWithTwoProfiles();
    const QString current = profileIn(u"kite-studio"_s);
    ASSERT_TRUE(world_.storedDetails().contains(current));
    manager->removeProfile(current);
    EXPECT_TRUE(becomes([&] { return networks(*manager) == QStringList{u"harbor-labs"_s}; }));
    EXPECT_TRUE(becomes([&] { return !manager->state().isConnected; }));
    EXPECT_EQ(message(*manager), u""_s);
    EXPECT_FALSE(world_.storedDetails().contains(current));
    EXPECT_EQ(manager->state().backendState, daemon_.account().value(u"backendState"_s).toString());
}

TEST_F(Commands, RemovingAnotherProfileKeepsTheConnection) {
    const auto manager = createWithTwoProfiles();
    manager->removeProfile(profileIn(u"harbor-labs"_s));
    EXPECT_TRUE(becomes([&] { return networks(*manager) == QStringList{u"kite-studio"_s}; }));
    ASSERT_TRUE(settle(*manager));
    EXPECT_TRUE(manager->state().isConnected);
}

TEST_F(Commands, RemovingAProfileThatIsGoneShowsTheToolsOwnWords) {
    const auto manager = createWithTwoProfiles();
    manager->removeProfile(u"c0ffee"_s);
    EXPECT_TRUE(becomes([&] { return !message(*manager).isEmpty(); }));
    EXPECT_EQ(message(*manager), u"Response status: 404 Not Found\nprofile not found\n"_s);
    EXPECT_EQ(manager->state().profiles.size(), 2);
}

TEST_F(Commands, DownDisconnectsAndUpConnectsAgain) {
    const auto manager = createWithTwoProfiles();
    ASSERT_TRUE(manager->state().isConnected);
    manager->disconnect();
    EXPECT_TRUE(becomes([&] { return manager->state().statusLabel() == u"Stopped"_s; }));
    EXPECT_FALSE(manager->state().isConnected);
    manager->connect();
    EXPECT_TRUE(becomes([&] { return manager->state().statusLabel() == u"Connected"_s; }));
    EXPECT_EQ(message(*manager), u""_s);
}

TEST_F(Commands, UpThatFailsShowsTheToolsOwnWordsUntilTheRefreshSucceeds) {
    daemon_.logIn(u"twkey-harbor-good"_s);
    daemon_.setFaults({u"error@up"_s});
    const auto manager = create();
    recordMessages(*manager);
    manager->connect();
    EXPECT_TRUE(becomes([&] { return messages_.size() > 1 && message(*manager).isEmpty(); }));
    EXPECT_TRUE(messages_.value(1).contains(u"error"_s));
}

class SlowStart : public SimulatedWorld {
protected:
    SlowStart() : SimulatedWorld(3) {}
};

TEST_F(SlowStart, ReadsConnectingUntilTheDaemonRuns) {
    world_.timing.statusPollInterval = std::chrono::milliseconds(20);
    const auto manager = create();
    logIn(*manager, u"twkey-harbor-good"_s);
    // A poll that was under way answers the log-in's own refresh at once, with the state before.
    ASSERT_TRUE(waitUntil([&] { return manager->state().backendState == u"Starting"_s; }));
    EXPECT_EQ(manager->state().statusLabel(), u"Connecting..."_s);
    EXPECT_EQ(manager->state().headerColor(), HeaderColor::Orange);
    EXPECT_TRUE(waitUntil([&] { return manager->state().isConnected; })) << "the poll notices";
}

} // namespace

} // namespace tarnwick
