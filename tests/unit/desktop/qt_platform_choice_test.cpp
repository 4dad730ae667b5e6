// SPDX-License-Identifier: MIT
#include "desktop/session_environment.h"

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QProcessEnvironment environment(const QString& wayland, const QString& x, const QString& qpa = {}) {
    QProcessEnvironment result;
    result.insert(u"WAYLAND_DISPLAY"_s, wayland);
    result.insert(u"DISPLAY"_s, x);
    result.insert(u"QT_QPA_PLATFORM"_s, qpa);
    return result;
}

} // namespace

TEST(QtPlatformChoice, PrefersTheXDisplayOfAWaylandSession) {
    EXPECT_EQ(preferredQtPlatforms(environment(u"wayland-0"_s, u":0"_s)), u"xcb;wayland"_s);
}

TEST(QtPlatformChoice, LeavesSessionsOfOneKindToQt) {
    EXPECT_EQ(preferredQtPlatforms(environment({}, u":0"_s)), QString());
    EXPECT_EQ(preferredQtPlatforms(environment(u"wayland-0"_s, {})), QString());
    EXPECT_EQ(preferredQtPlatforms({}), QString());
}

TEST(QtPlatformChoice, LeavesTheUsersDecisionAlone) {
    EXPECT_EQ(preferredQtPlatforms(environment(u"wayland-0"_s, u":0"_s, u"wayland"_s)), QString());
}

TEST(GnomeStatusArea, IsKnownByTheNamesOfTheDesktop) {
    const auto isThere = [](const QString& names) {
        QProcessEnvironment session;
        session.insert(u"XDG_CURRENT_DESKTOP"_s, names);
        return isGnome(session);
    };
    for (const auto& names :
         {u"GNOME"_s, u"ubuntu:GNOME"_s, u"GNOME-Classic:GNOME"_s, u":gnome:"_s})
        EXPECT_TRUE(isThere(names)) << qPrintable(names);
    for (const auto& names : {u""_s, u"KDE"_s, u"X-Cinnamon"_s, u"Budgie:NOTGNOME"_s})
        EXPECT_FALSE(isThere(names)) << qPrintable(names);
    EXPECT_FALSE(isGnome({}));
}

} // namespace tarnwick
