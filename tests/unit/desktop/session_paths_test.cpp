// SPDX-License-Identifier: MIT
#include "desktop/session_environment.h"

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QString lockFor(const QString& wayland, const QString& x) {
    QProcessEnvironment environment;
    environment.insert(u"WAYLAND_DISPLAY"_s, wayland);
    environment.insert(u"DISPLAY"_s, x);
    return SessionPaths::in(u"/run/user/1000"_s, environment).lock;
}

} // namespace

TEST(SessionPaths, LieInTheUsersRuntimeDirectory) {
    const SessionPaths paths = SessionPaths::in(u"/run/user/1000"_s, {});
    EXPECT_EQ(paths.lock, u"/run/user/1000/tarnwick-client.lock"_s);
    EXPECT_EQ(paths.socket, u"/run/user/1000/tarnwick-client.socket"_s);
}

TEST(SessionPaths, TellSessionsFromEachOther) {
    EXPECT_NE(lockFor({}, u":0"_s), lockFor({}, u":1"_s));
    EXPECT_NE(lockFor(u"wayland-0"_s, u":0"_s), lockFor(u"wayland-1"_s, u":1"_s));
    EXPECT_NE(lockFor({}, u"host:10.0"_s), lockFor({}, u":10.0"_s));
}

TEST(SessionPaths, AreTheSameForEveryScreenOfADisplay) {
    EXPECT_EQ(lockFor({}, u":0"_s), lockFor({}, u":0.0"_s));
    EXPECT_EQ(lockFor({}, u":0.0"_s), lockFor({}, u":0.1"_s));
}

TEST(SessionPaths, AreFileNamesWhateverTheDisplayIsCalled) {
    EXPECT_EQ(lockFor(u"/run/user/1000/wayland-1"_s, {}).count(u'/'), 4);
    EXPECT_EQ(lockFor({}, u"unix/host:0"_s).count(u'/'), 4);
}

} // namespace tarnwick
