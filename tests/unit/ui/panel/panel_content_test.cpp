// SPDX-License-Identifier: MIT
#include "sample_state.h"
#include "ui/panel/panel_content.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using Kind = PanelCommand::Kind;
using test::connectedState;
using test::device;
using test::profile;
using test::stoppedState;

QList<PanelContent::Action> actionsOf(const PanelContent& content) {
    return content.find<PanelContent::Actions>()->actions;
}

/// The titles of the actions, a divider as "-".
QStringList titles(const PanelContent& content) {
    QStringList titles;
    for (const PanelContent::Action& action : actionsOf(content)) {
        if (const auto* button = std::get_if<PanelContent::Button>(&action))
            titles.append(button->title);
        else if (const auto* picker = std::get_if<PanelContent::ProfilePicker>(&action))
            titles.append(picker->title);
        else
            titles.append(u"-"_s);
    }
    return titles;
}

QStringList titlesAboveDivider(const PanelContent& content) {
    const QStringList all = titles(content);
    return all.first(all.indexOf("-"_L1));
}

PanelContent::ProfilePicker picker(const PanelContent& content) {
    return std::get<PanelContent::ProfilePicker>(actionsOf(content).first());
}

DaemonState withProfiles(DaemonState state, const QList<NetworkProfile>& profiles) {
    state.profiles = profiles;
    return state;
}

TEST(PanelContent, ConnectedWithOnlyTheCurrentProfileOffersOnlyDisconnect) {
    const auto content = PanelContent::of(withProfiles(connectedState(), {profile(u"a"_s, true)}));
    EXPECT_EQ(titlesAboveDivider(content), QStringList{u"Disconnect"_s});
}

TEST(PanelContent, OneProfileThatIsNotTheCurrentOneCanBeSwitchedTo) {
    const auto content = PanelContent::of(withProfiles(connectedState(), {profile(u"a"_s)}));
    EXPECT_EQ(titlesAboveDivider(content), (QStringList{u"Switch network"_s, u"Disconnect"_s}));
    EXPECT_EQ(picker(content).profiles.size(), 1);
}

TEST(PanelContent, OneProfileCanBeConnectedToWhetherItIsTheCurrentOneOrNot) {
    for (const bool isCurrent : {false, true}) {
        const auto content =
            PanelContent::of(withProfiles(stoppedState(), {profile(u"a"_s, isCurrent)}));
        EXPECT_EQ(titlesAboveDivider(content),
                  (QStringList{u"Connect (1)"_s, u"Use Auth Key..."_s}));
        ASSERT_EQ(picker(content).profiles.size(), 1);
        EXPECT_FALSE(picker(content).profiles[0].isSelected);
        EXPECT_TRUE(picker(content).profiles[0].remove);
    }
}

TEST(PanelContent, SwitchNetworkListsTheTwoOtherProfilesNeitherMarked) {
    const auto content = PanelContent::of(
        withProfiles(connectedState(), {profile(u"a"_s), profile(u"b"_s, true), profile(u"c"_s)}));
    EXPECT_EQ(titlesAboveDivider(content), (QStringList{u"Switch network"_s, u"Disconnect"_s}));
    const auto lines = picker(content).profiles;
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].key, "a"_L1);
    EXPECT_EQ(lines[1].key, "c"_L1);
    EXPECT_FALSE(lines[0].isSelected);
    EXPECT_FALSE(lines[1].isSelected);
    EXPECT_EQ(lines[1].pick, (PanelCommand{Kind::SwitchProfile, u"c"_s}));
    EXPECT_EQ(lines[1].remove, (PanelCommand{Kind::RemoveProfile, u"c"_s}));
}

TEST(PanelContent, NeedsLoginWithTwoProfilesOffersOnlyTheAuthKey) {
    DaemonState state = withProfiles(stoppedState(), {profile(u"a"_s), profile(u"b"_s)});
    state.backendState = u"NeedsLogin"_s;
    EXPECT_EQ(titlesAboveDivider(PanelContent::of(state)), QStringList{u"Use Auth Key..."_s});
    state.backendState = u"needslogin"_s; // another word
    EXPECT_EQ(titlesAboveDivider(PanelContent::of(state)),
              (QStringList{u"Connect (2)"_s, u"Use Auth Key..."_s}));
}

TEST(PanelContent, NotInstalledWithTwoProfilesOffersOnlyTheAuthKey) {
    DaemonState state = withProfiles(stoppedState(), {profile(u"a"_s), profile(u"b"_s)});
    state.daemonInstalled = false;
    EXPECT_EQ(titlesAboveDivider(PanelContent::of(state)), QStringList{u"Use Auth Key..."_s});
}

TEST(PanelContent, StoppedAndInstalledWithoutProfilesOffersOnlyTheAuthKey) {
    EXPECT_EQ(titlesAboveDivider(PanelContent::of(stoppedState())),
              QStringList{u"Use Auth Key..."_s});
}

TEST(PanelContent, NotConnectedWithTwoProfilesOffersTheConnectPickerThenTheAuthKey) {
    const auto content =
        PanelContent::of(withProfiles(stoppedState(), {profile(u"a"_s, true), profile(u"b"_s)}));
    EXPECT_EQ(titles(content),
              (QStringList{u"Connect (2)"_s, u"Use Auth Key..."_s, u"-"_s, u"Refresh"_s,
                           u"Check for Updates..."_s, u"Website"_s, u"Quit Tarnwick Network"_s}));
    const auto connect = picker(content);
    EXPECT_EQ(connect.symbol, "network"_L1);
    ASSERT_EQ(connect.profiles.size(), 2);
    EXPECT_FALSE(connect.profiles[0].isSelected) << "the current one is not marked";
    EXPECT_TRUE(connect.profiles[0].remove);
}

TEST(PanelContent, ConnectedWithoutPeersHasNoDevicesEntryAndNoFurtherDivider) {
    DaemonState state = connectedState();
    auto content = PanelContent::of(state);
    EXPECT_EQ(content.find<PanelContent::Devices>(), nullptr);
    EXPECT_EQ(content.sections.size(), 3); // a divider stands between each two

    state.devices = {device(u"one"_s)};
    content = PanelContent::of(state);
    EXPECT_EQ(content.sections.size(), 4);
    EXPECT_EQ(content.find<PanelContent::Devices>()->count, "(1)"_L1);
}

TEST(PanelContent, AnEmptyErrorStillHasItsSectionAndNoErrorHasNone) {
    DaemonState state = stoppedState();
    EXPECT_EQ(PanelContent::of(state).find<PanelContent::Error>(), nullptr);
    EXPECT_EQ(PanelContent::of(state).sections.size(), 2);
    state.errorMessage = u""_s;
    const auto content = PanelContent::of(state);
    ASSERT_NE(content.find<PanelContent::Error>(), nullptr);
    EXPECT_EQ(content.find<PanelContent::Error>()->text, ""_L1);
    EXPECT_EQ(content.sections.size(), 3);
}

TEST(PanelContent, TheAddressIsSelectableAndTheHostNameIsNot) {
    const auto rows = PanelContent::of(connectedState()).find<PanelContent::Info>()->rows;
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0], (PanelContent::InfoRow{u"IP Address"_s, u"100.64.0.1"_s, true}));
    EXPECT_EQ(rows[1], (PanelContent::InfoRow{u"Hostname"_s, u"my-computer"_s, false}));
}

TEST(PanelContent, NotConnectedShowsNeitherAddressNorDevices) {
    DaemonState state = connectedState();
    state.devices = {device(u"one"_s)};
    state.isConnected = false;
    const auto content = PanelContent::of(state);
    EXPECT_EQ(content.find<PanelContent::Info>(), nullptr);
    EXPECT_EQ(content.find<PanelContent::Devices>(), nullptr);
}

TEST(PanelContent, HeaderFollowsTheConnection) {
    DaemonState state = connectedState();
    EXPECT_EQ(*PanelContent::of(state).find<PanelContent::Header>(),
              (PanelContent::Header{u"network"_s, u"Tarnwick Network"_s, u"Connected"_s,
                                    ThemeColor::Green}));
    state.isConnected = false;
    EXPECT_EQ(*PanelContent::of(state).find<PanelContent::Header>(),
              (PanelContent::Header{u"network.slash"_s, u"Tarnwick Network"_s, u"Connecting..."_s,
                                    ThemeColor::Orange}));
    EXPECT_EQ(PanelContent::of(stoppedState()).find<PanelContent::Header>()->color,
              ThemeColor::Secondary);
}

TEST(PanelContent, EveryButtonCallsItsOwnOperation) {
    const auto kindOf = [](const PanelContent::Action& action) {
        return std::get<PanelContent::Button>(action).command.kind;
    };
    const auto actions = actionsOf(PanelContent::of(connectedState()));
    ASSERT_EQ(actions.size(), 6);
    EXPECT_EQ(kindOf(actions[0]), Kind::Disconnect);
    EXPECT_EQ(kindOf(actions[2]), Kind::Refresh);
    EXPECT_EQ(kindOf(actions[3]), Kind::CheckForUpdates);
    EXPECT_EQ(kindOf(actions[4]), Kind::OpenWebsite);
    EXPECT_EQ(kindOf(actions[5]), Kind::Quit);
    const auto stopped = actionsOf(PanelContent::of(stoppedState()));
    EXPECT_EQ(kindOf(stopped[0]), Kind::ShowAuthKeyWindow);
}

TEST(PanelContent, ProfileShowsItsNameAndMonospacedAddress) {
    NetworkProfile known = profile(u"a"_s);
    known.hostname = u"laptop"_s;
    known.ipAddress = u"100.64.0.9"_s;
    const auto lines = PanelContent::profileLines({known, profile(u"b"_s)}, false);
    EXPECT_EQ(lines[0].title, "laptop"_L1);
    EXPECT_EQ(lines[0].subtitle, "100.64.0.9"_L1);
    EXPECT_EQ(lines[0].subtitleDesign, TextDesign::Monospaced);
    EXPECT_EQ(lines[1].title, "user-b"_L1);
    EXPECT_EQ(lines[1].subtitle, "net-b"_L1);
    EXPECT_EQ(lines[1].subtitleDesign, TextDesign::Standard);
}

TEST(PanelContent, OnlyAShownSelectionMarksTheCurrentProfileAndKeepsIt) {
    const QList<NetworkProfile> profiles{profile(u"a"_s, true), profile(u"b"_s)};
    const auto marked = PanelContent::profileLines(profiles, true);
    EXPECT_TRUE(marked[0].isSelected);
    EXPECT_FALSE(marked[0].remove);
    EXPECT_FALSE(marked[1].isSelected);
    EXPECT_TRUE(marked[1].remove);
    const auto unmarked = PanelContent::profileLines(profiles, false);
    EXPECT_FALSE(unmarked[0].isSelected);
    EXPECT_TRUE(unmarked[0].remove);
}

TEST(PanelContent, EqualStatesGiveEqualContent) {
    DaemonState state = withProfiles(connectedState(), {profile(u"a"_s), profile(u"b"_s, true)});
    state.devices = test::numberedDevices(3);
    EXPECT_EQ(PanelContent::of(state), PanelContent::of(state));
    DaemonState other = state;
    other.devices[2].online = !other.devices[2].online;
    EXPECT_NE(PanelContent::of(state), PanelContent::of(other));
}

} // namespace

} // namespace tarnwick
