// SPDX-License-Identifier: MIT
#include "daemon/published_state.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QList>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(PublishedState, AnnouncesBeforeTheNewValueIsStored) {
    PublishedState state;
    state.set(&DaemonState::hostname, u"old"_s);
    QList<QString> seen;
    QObject::connect(&state, &PublishedState::objectWillChange, &state,
                     [&] { seen.append(state.value().hostname); });
    state.set(&DaemonState::hostname, u"new"_s);
    EXPECT_EQ(seen, QList<QString>{u"old"_s});
    EXPECT_EQ(state.value().hostname, u"new"_s);
}

TEST(PublishedState, AnnouncesEverySettingOfEveryField) {
    PublishedState state;
    int announcements = 0;
    QObject::connect(&state, &PublishedState::objectWillChange, &state, [&] { ++announcements; });
    state.set(&DaemonState::isConnected, false); // the value that it has counts too
    state.set(&DaemonState::isConnected, true);
    state.set(&DaemonState::errorMessage, u"text"_s);
    EXPECT_EQ(announcements, 3);
}

TEST(PublishedState, HasChangedOnceForAllTheSettingsOfATurnWhenTheyAreStored) {
    PublishedState state;
    QList<DaemonState> seen;
    QObject::connect(&state, &PublishedState::changed, &state, [&] { seen.append(state.value()); });
    for (const auto& name : {u"a"_s, u"b"_s, u"c"_s})
        state.set(&DaemonState::hostname, name);
    state.set(&DaemonState::isConnected, true);
    EXPECT_TRUE(seen.isEmpty()) << "not before the next turn";
    ASSERT_TRUE(test::waitUntil([&] { return !seen.isEmpty(); }));
    EXPECT_EQ(seen.first().hostname, u"c"_s);
    EXPECT_TRUE(seen.first().isConnected);
    test::runEventLoopFor(10ms);
    EXPECT_EQ(seen.size(), 1);

    state.set(&DaemonState::hostname, u"d"_s);
    ASSERT_TRUE(test::waitUntil([&] { return seen.size() == 2; }));
    EXPECT_EQ(seen.last().hostname, u"d"_s);
}

TEST(PublishedState, HasNotChangedWhenEveryValueIsTheOneThatItHad) {
    PublishedState state;
    state.set(&DaemonState::hostname, u"name"_s);
    test::runEventLoopFor(10ms);
    int changes = 0;
    QObject::connect(&state, &PublishedState::changed, &state, [&] { ++changes; });
    state.set(&DaemonState::hostname, u"name"_s);
    state.set(&DaemonState::errorMessage, std::nullopt);
    test::runEventLoopFor(10ms);
    EXPECT_EQ(changes, 0);
}

} // namespace

} // namespace tarnwick
