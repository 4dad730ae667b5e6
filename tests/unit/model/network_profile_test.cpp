// SPDX-License-Identifier: MIT
#include "model/network_profile.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

NetworkProfile profile(const QString& id, const QString& tailnet, const QString& loginName,
                       bool isCurrent = false) {
    return {id, tailnet, loginName, isCurrent, {}, {}};
}

TEST(ProfileList, HeaderAloneOrFewerThanTwoLinesYieldAnEmptyList) {
    EXPECT_TRUE(parseProfileList(u"ID Network Account\n"_s).isEmpty());
    EXPECT_TRUE(parseProfileList(u"error: connection timed out"_s).isEmpty());
    EXPECT_TRUE(parseProfileList(u""_s).isEmpty());
    EXPECT_TRUE(parseProfileList(u"\n\n\n"_s).isEmpty());
    EXPECT_TRUE(parseProfileList(u"\n\na1b2 corp-net alice\n\n"_s).isEmpty());
}

TEST(ProfileList, PiecesTwoSpacesApartAndAStarYieldTheCurrentProfile) {
    EXPECT_EQ(parseProfileList(u"ID  Network  Account\na1b2  corp-net  alice*\n"_s),
              QList{profile(u"a1b2"_s, u"corp-net"_s, u"alice"_s, true)});
}

TEST(ProfileList, LoginNameOfTwoWordsKeepsOneSpace) {
    EXPECT_EQ(parseProfileList(u"header\na1b2 corp-net Alice Smith"_s),
              QList{profile(u"a1b2"_s, u"corp-net"_s, u"Alice Smith"_s)});
    EXPECT_EQ(parseProfileList(u"header\na1b2 corp-net Alice    Smith"_s),
              QList{profile(u"a1b2"_s, u"corp-net"_s, u"Alice Smith"_s)});
}

TEST(ProfileList, LineOfTwoPiecesIsSkipped) {
    EXPECT_EQ(parseProfileList(u"header\na1b2 corp-net\nc3d4 home bob\n"_s),
              QList{profile(u"c3d4"_s, u"home"_s, u"bob"_s)});
}

TEST(ProfileList, TabsBetweenColumnsDoNotSeparateThemAndTheLineIsSkipped) {
    EXPECT_TRUE(parseProfileList(u"header\na1b2\tcorp-net\talice\n"_s).isEmpty());
}

TEST(ProfileList, StarAfterASpaceLeavesTheSpace) {
    EXPECT_EQ(parseProfileList(u"header\na1b2 corp-net alice *"_s),
              QList{profile(u"a1b2"_s, u"corp-net"_s, u"alice "_s, true)});
}

TEST(ProfileList, OnlyOneStarIsRemoved) {
    EXPECT_EQ(parseProfileList(u"header\na1b2 corp-net alice**"_s),
              QList{profile(u"a1b2"_s, u"corp-net"_s, u"alice*"_s, true)});
    EXPECT_EQ(parseProfileList(u"header\na1b2 corp-net *"_s),
              QList{profile(u"a1b2"_s, u"corp-net"_s, u""_s, true)});
}

TEST(ProfileList, BlanksAndTabsAroundALineAreTrimmed) {
    EXPECT_EQ(parseProfileList(u"header\n \t a1b2 corp-net alice*\t \n"_s),
              QList{profile(u"a1b2"_s, u"corp-net"_s, u"alice"_s, true)});
}

TEST(ProfileList, LineOfBlanksCountsAsTheHeader) {
    EXPECT_EQ(parseProfileList(u"   \na1b2 corp-net alice\n"_s),
              QList{profile(u"a1b2"_s, u"corp-net"_s, u"alice"_s)});
}

TEST(ProfileList, OrderIsThatOfTheLinesAndSeveralMayBeCurrent) {
    EXPECT_EQ(parseProfileList(u"header\nz net a*\n\nb net c*\na net b\n"_s),
              (QList{profile(u"z"_s, u"net"_s, u"a"_s, true),
                     profile(u"b"_s, u"net"_s, u"c"_s, true), profile(u"a"_s, u"net"_s, u"b"_s)}));
}

TEST(ProfileList, ProfilesAreEqualWhenAllSixFieldsAre) {
    const NetworkProfile one{u"a"_s, u"b"_s, u"c"_s, true, u"d"_s, u"e"_s};
    EXPECT_EQ(one, one);
    for (int field = 0; field < 6; ++field) {
        NetworkProfile other = one;
        QString* const texts[] = {&other.id, &other.tailnet, &other.loginName, &other.ipAddress,
                                  &other.hostname};
        if (field < 5)
            *texts[field] += u'x';
        else
            other.isCurrent = false;
        EXPECT_NE(one, other) << field;
    }
}

} // namespace

} // namespace tarnwick
