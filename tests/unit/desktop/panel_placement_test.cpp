// SPDX-License-Identifier: MIT
#include "desktop/panel_placement.h"

#include <gtest/gtest.h>

#include <limits>
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

namespace {

constexpr QRect noBar = screen;
constexpr QRect aboveBottomBar(0, 0, 1280, 760);
constexpr QRect besideLeftBar(48, 0, 1232, 800);
constexpr QRect besideRightBar(0, 0, 1232, 800);
constexpr QRect underBar(0, 32, 1280, 768);

struct Click {
    const char* name;
    QList<ScreenArea> screens;
    QPoint reported;
    std::optional<QPoint> meant;
};

void PrintTo(const Click& click, std::ostream* out) {
    *out << click.name;
}

class ClickedPointTest : public testing::TestWithParam<Click> {};

std::string nameOfClick(const testing::TestParamInfo<Click>& tested) {
    return tested.param.name;
}

QList<ScreenArea> scaled(double scale) {
    return {{screen, underBar, scale}};
}

/// A dense screen and to its right an ordinary one.
const QList<ScreenArea> twoScreens{{{0, 0, 1280, 800}, underBar, 2},
                                   {{2560, 0, 1920, 1080}, {2560, 0, 1920, 1040}, 1}};

constexpr int least = std::numeric_limits<int>::min();
constexpr int most = std::numeric_limits<int>::max();

} // namespace

TEST_P(ClickedPointTest, IsFound) {
    const Click& click = GetParam();
    EXPECT_EQ(clickedPoint(click.reported, click.screens), click.meant);
}

INSTANTIATE_TEST_SUITE_P(
    Scales, ClickedPointTest,
    testing::Values(
        Click{"AtOne", scaled(1), {1200, 16}, QPoint(1200, 16)},
        Click{"AtOneAndAQuarterInDevicePixels", scaled(1.25), {1500, 20}, QPoint(1200, 16)},
        Click{"AtTwoInDevicePixels", scaled(2), {2400, 32}, QPoint(1200, 16)},
        Click{"AtTwoInDeviceIndependentPixelsOfABottomBar",
              {{screen, aboveBottomBar, 2}},
              {1200, 780},
              QPoint(1200, 780)},
        Click{"AtTwoInDevicePixelsOfABottomBar",
              {{screen, aboveBottomBar, 2}},
              {2400, 1560},
              QPoint(1200, 780)},
        Click{"AtTwoWithoutABarItIsDevicePixels", {{screen, noBar, 2}}, {1200, 16}, QPoint(600, 8)},
        Click{"AtTheLastDevicePixel", scaled(1.25), {1599, 999}, QPoint(1279, 799)}),
    nameOfClick);

INSTANTIATE_TEST_SUITE_P(
    Screens, ClickedPointTest,
    testing::Values(Click{"OnTheDenseOne", twoScreens, {2540, 30}, QPoint(1270, 15)},
                    Click{"OnTheOtherOne", twoScreens, {4400, 1060}, QPoint(4400, 1060)},
                    Click{
                        "LeftOfThePrimary",
                        {{screen, noBar, 1}, {{-1920, 0, 1920, 1080}, {-1920, 26, 1920, 1054}, 1}},
                        {-10, 10},
                        QPoint(-10, 10)}),
    nameOfClick);

INSTANTIATE_TEST_SUITE_P(Nowhere, ClickedPointTest,
                         testing::Values(Click{"NotKnown", scaled(1), {0, 0}, {}},
                                         Click{"OutsideOfEveryScreen", scaled(2), {2560, 10}, {}},
                                         Click{"Negative", scaled(1), {-1, 10}, {}},
                                         Click{"Least", twoScreens, {least, least}, {}},
                                         Click{"Most", twoScreens, {most, most}, {}},
                                         Click{"Mixed", twoScreens, {most, least}, {}}),
                         nameOfClick);

TEST(ClickedPoint, OfTwoPlacesInABarTheOneNearerToThePointerCounts) {
    EXPECT_EQ(clickedPoint({1200, 16}, scaled(2)), QPoint(600, 8));
    EXPECT_EQ(clickedPoint({1200, 16}, scaled(2), QPoint(610, 10)), QPoint(600, 8));
    EXPECT_EQ(clickedPoint({1200, 16}, scaled(2), QPoint(1190, 10)), QPoint(1200, 16));
}

TEST(IconPlaceTest, TheRectangleCountsFirst) {
    const QRect icon(100, 1, 24, 24);
    const auto placement =
        PanelPlacement::beside({icon, QPoint(600, 16), QPoint(900, 16)}, scaled(1));
    EXPECT_EQ(placement.icon, icon);
    EXPECT_EQ(placement.available, underBar);
}

TEST(IconPlaceTest, TheClickCountsBeforeThePointer) {
    const auto placement =
        PanelPlacement::beside({{}, QPoint(600, 16), QPoint(900, 16)}, scaled(1));
    EXPECT_TRUE(placement.icon.contains(QPoint(600, 16)));
    EXPECT_LE(placement.icon.width(), 24);
}

TEST(IconPlaceTest, ThePointerCountsWhereTheClickIsNowhere) {
    for (const std::optional<QPoint> click : {std::optional<QPoint>(), {{0, 0}}, {{-7, 90'000}}}) {
        const auto placement = PanelPlacement::beside({{}, click, QPoint(900, 16)}, scaled(1));
        EXPECT_TRUE(placement.icon.contains(QPoint(900, 16)));
    }
}

TEST(IconPlaceTest, AClickOnTheSecondScreenOpensThere) {
    const auto placement = PanelPlacement::beside({{}, QPoint(4400, 1060)}, twoScreens);
    EXPECT_EQ(placement.screen, twoScreens[1].geometry);
    EXPECT_EQ(placement.edge(), Edge::Bottom);
    EXPECT_EQ(QRect(placement.position(panel), panel).bottom(), 1039);
}

TEST(IconPlaceTest, APlaceOffEveryScreenIsOnThePrimaryOne) {
    const auto placement = PanelPlacement::beside({QRect(90'000, 90'000, 24, 24)}, twoScreens);
    EXPECT_EQ(placement.screen, twoScreens[0].geometry);
}

TEST(IconPlaceTest, WithNothingKnownThePanelIsInTheUsualCornerBesideTheBar) {
    const std::pair<QRect, QRect> corners[] = {
        {underBar, {980, 32, 300, 400}},
        {aboveBottomBar, {980, 360, 300, 400}},
        {besideLeftBar, {48, 400, 300, 400}},
        {besideRightBar, {932, 400, 300, 400}},
        {noBar, {980, 24, 300, 400}},
        {{0, 32, 1280, 720}, {980, 32, 300, 400}},
        {{48, 32, 1232, 768}, {980, 32, 300, 400}},
    };
    for (const auto& [available, expected] : corners) {
        const auto placement =
            PanelPlacement::beside({{}, {}, QPoint(-5, -5)}, {{screen, available, 1}});
        EXPECT_EQ(QRect(placement.position(panel), panel), expected);
    }
}

TEST(IconPlaceTest, WithNothingKnownTheScreenWithTheBarIsTaken) {
    const auto placement = PanelPlacement::beside(
        {}, {{screen, noBar, 1}, {{1280, 0, 1280, 800}, {1280, 0, 1280, 760}, 1}});
    EXPECT_EQ(placement.position(panel), QPoint(2260, 360));
}

} // namespace tarnwick
