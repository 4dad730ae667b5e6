// SPDX-License-Identifier: MIT
#include "desktop/panel_placement.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace tarnwick {

namespace {

using Edge = PanelPlacement::Edge;

constexpr QRect screen(0, 0, 1280, 800);
constexpr QRect belowTopDock(0, 26, 1280, 774);
constexpr QSize panel(300, 400);

struct Case {
    const char* name;
    PanelPlacement placement;
    Edge edge;
    QPoint expected;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class PanelPlacementTest : public testing::TestWithParam<Case> {};

std::string nameOfCase(const testing::TestParamInfo<Case>& tested) {
    return tested.param.name;
}

bool leavesIconFree(const PanelPlacement& placement, const QSize& size) {
    return !QRect(placement.position(size), size).intersects(placement.icon);
}

} // namespace

TEST_P(PanelPlacementTest, OpensBesideTheIcon) {
    const auto& [name, placement, edge, expected] = GetParam();
    EXPECT_EQ(placement.edge(), edge);
    EXPECT_EQ(placement.position(panel), expected);
    EXPECT_TRUE(leavesIconFree(placement, panel));
    EXPECT_TRUE(placement.available.contains(QRect(placement.position(panel), panel)));
}

INSTANTIATE_TEST_SUITE_P(
    Edges, PanelPlacementTest,
    testing::Values(
        Case{"TopMiddle", {{600, 1, 24, 24}, screen, belowTopDock}, Edge::Top, {461, 26}},
        Case{"TopRightCorner", {{1256, 1, 24, 24}, screen, belowTopDock}, Edge::Top, {980, 26}},
        Case{"TopLeftCorner", {{0, 1, 24, 24}, screen, belowTopDock}, Edge::Top, {0, 26}},
        Case{"Bottom", {{1000, 775, 24, 24}, screen, {0, 0, 1280, 774}}, Edge::Bottom, {861, 374}},
        Case{"Left", {{1, 300, 24, 24}, screen, {26, 0, 1254, 800}}, Edge::Left, {26, 111}},
        Case{"Right", {{1255, 790, 24, 10}, screen, {0, 0, 1254, 800}}, Edge::Right, {954, 400}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    StatusAreasThatReserveNoRoom, PanelPlacementTest,
    testing::Values(
        Case{"Top", {{600, 0, 24, 24}, screen, screen}, Edge::Top, {461, 24}},
        Case{"Bottom", {{600, 776, 24, 24}, screen, screen}, Edge::Bottom, {461, 376}},
        Case{"Left", {{0, 300, 24, 24}, screen, screen}, Edge::Left, {24, 111}},
        Case{"Right", {{1256, 300, 24, 24}, screen, screen}, Edge::Right, {956, 111}},
        Case{"TopRightCorner", {{1256, 0, 24, 24}, screen, screen}, Edge::Top, {980, 24}},
        Case{"BottomLeftCorner", {{0, 776, 24, 24}, screen, screen}, Edge::Bottom, {0, 376}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    SeveralScreens, PanelPlacementTest,
    testing::Values(
        Case{"RightOfTwo",
             {{1290, 0, 24, 24}, {1280, 0, 1920, 1080}, {1280, 0, 1920, 1080}},
             Edge::Top,
             {1280, 24}},
        Case{"LeftOfThePrimary",
             {{-30, 1, 24, 24}, {-1920, 0, 1920, 1080}, {-1920, 26, 1920, 1054}},
             Edge::Top,
             {-300, 26}},
        Case{"AboveThePrimary",
             {{100, -30, 24, 24}, {0, -1080, 1920, 1080}, {0, -1080, 1920, 1054}},
             Edge::Bottom,
             {0, -430}},
        Case{"LeftAndAboveThePrimary",
             {{-1920, -600, 24, 24}, {-1920, -1080, 1920, 1080}, {-1896, -1080, 1896, 1080}},
             Edge::Left,
             {-1896, -788}}),
    nameOfCase);

TEST(PanelPlacement, StaysOnItsScreenWhenTheWorkAreaReachesOver) {
    const PanelPlacement placement{{1250, 0, 24, 24}, screen, {0, 26, 3200, 774}};
    EXPECT_EQ(placement.position(panel), QPoint(980, 26));
}

TEST(PanelPlacement, APanelTooHighForItsPlaceGoesBesideTheIcon) {
    const PanelPlacement placement{{400, 100, 24, 24}, {0, 0, 800, 420}, {0, 0, 800, 420}};
    ASSERT_EQ(placement.edge(), Edge::Top);
    const QPoint position = placement.position(panel);
    EXPECT_TRUE(leavesIconFree(placement, panel));
    EXPECT_TRUE(placement.screen.contains(QRect(position, panel)));
}

TEST(PanelPlacement, RoomEndsAtTheIcon) {
    EXPECT_EQ((PanelPlacement{{600, 1, 24, 24}, screen, belowTopDock}.roomForPanel()), 774);
    EXPECT_EQ((PanelPlacement{{600, 0, 24, 24}, screen, screen}.roomForPanel()), 776);
    EXPECT_EQ((PanelPlacement{{600, 770, 24, 24}, screen, screen}.roomForPanel()), 770);
    EXPECT_EQ((PanelPlacement{{0, 300, 24, 24}, screen, screen}.roomForPanel()), 800);
}

TEST(PanelPlacement, APanelOfThatHeightLeavesTheIconFree) {
    const QRect tiny(0, 0, 320, 200);
    for (const QRect icon : {QRect(290, 0, 24, 24), QRect(10, 176, 24, 24)}) {
        const PanelPlacement placement{icon, tiny, tiny};
        EXPECT_TRUE(leavesIconFree(placement, {300, placement.roomForPanel()}));
    }
}

TEST(PanelPlacement, OnAScreenSmallerThanThePanelItsTopLeftShows) {
    const QRect tiny(-160, 0, 160, 120);
    const PanelPlacement placement{{-24, 0, 24, 24}, tiny, tiny};
    EXPECT_EQ(placement.position(panel), QPoint(-160, 0));
}

TEST(AssumedIcon, IsRoundTheCursorThatClickedIt) {
    const QRect icon = assumedIcon({1200, 10}, screen, belowTopDock);
    EXPECT_TRUE(icon.contains(QPoint(1200, 10)));
    EXPECT_LE(icon.width(), 24);
}

TEST(AssumedIcon, IsInTheUsualCornerWhenTheCursorIsElsewhere) {
    EXPECT_EQ(assumedIcon({-5, -5}, screen, belowTopDock).topRight(), screen.topRight());
    EXPECT_EQ(assumedIcon({-5, -5}, screen, screen).topRight(), screen.topRight());
    const QRect aboveDock(0, 0, 1280, 760);
    EXPECT_EQ(assumedIcon({-5, -5}, screen, aboveDock).bottomRight(), screen.bottomRight());
}

} // namespace tarnwick
