// SPDX-License-Identifier: MIT
#include "daemon/daemon_state.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

DaemonState stateOf(const QString& backendState, bool isConnected = false) {
    DaemonState state;
    state.backendState = backendState;
    state.isConnected = isConnected;
    return state;
}

TEST(DaemonState, NoStateAndTheEmptyTextReadStoppedAndUnknownWordsAreShownInSecondaryColour) {
    EXPECT_EQ(stateOf(u"NoState"_s).statusLabel(), u"Stopped"_s);
    EXPECT_EQ(stateOf(u""_s).statusLabel(), u"Stopped"_s);
    for (const auto& word : {u"NeedsMachineAuth"_s, u"running"_s, u"STARTING"_s, u"Stopped"_s,
                             u"Running "_s, u"\U0001F600"_s}) {
        EXPECT_EQ(stateOf(word).statusLabel(), word);
        EXPECT_EQ(stateOf(word).headerColor(), HeaderColor::Secondary);
    }
    EXPECT_EQ(stateOf(u"NoState"_s).headerColor(), HeaderColor::Secondary);
    EXPECT_EQ(stateOf(u""_s).headerColor(), HeaderColor::Secondary);
}

TEST(DaemonState, ConnectedIsGreenWhateverTheBackendStateSays) {
    for (const auto& word : {u"Running"_s, u"NeedsLogin"_s, u""_s}) {
        EXPECT_EQ(stateOf(word, true).statusLabel(), u"Connected"_s);
        EXPECT_EQ(stateOf(word, true).headerColor(), HeaderColor::Green);
    }
}

TEST(DaemonState, RunningOrStartingReadsConnectingAndNeedsLoginNeedsLogin) {
    EXPECT_EQ(stateOf(u"Running"_s).statusLabel(), u"Connecting..."_s);
    EXPECT_EQ(stateOf(u"Starting"_s).statusLabel(), u"Connecting..."_s);
    EXPECT_EQ(stateOf(u"NeedsLogin"_s).statusLabel(), u"Needs Login"_s);
    for (const auto& word : {u"Running"_s, u"Starting"_s, u"NeedsLogin"_s})
        EXPECT_EQ(stateOf(word).headerColor(), HeaderColor::Orange);
}

} // namespace

} // namespace tarnwick
