// SPDX-License-Identifier: MIT
#include "ui/controls/popover.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

constexpr QRect screen(0, 0, 1000, 800);
constexpr QSize content(260, 200);
constexpr int depth = PopoverPlacement::arrowDepth;

TEST(PopoverPlacement, StandsAtTheLeadingEdgeWithItsArrowAtTheRow) {
    const QRect row(600, 300, 300, 28);
    const auto placement = PopoverPlacement::beside(row, content, screen, Qt::LeftToRight);
    EXPECT_EQ(placement.window, QRect(600 - 260 - depth, row.center().y() - 100, 260 + depth, 200));
    EXPECT_TRUE(placement.isArrowRight);
    EXPECT_EQ(placement.arrowY, 100);
    EXPECT_EQ(placement.contentRect(), QRect(0, 0, 260, 200));
}

TEST(PopoverPlacement, TurnsToTheOtherSideWhereTheScreenEnds) {
    const QRect row(100, 300, 300, 28);
    const auto placement = PopoverPlacement::beside(row, content, screen, Qt::LeftToRight);
    EXPECT_EQ(placement.window.left(), 400);
    EXPECT_FALSE(placement.isArrowRight);
    EXPECT_EQ(placement.contentRect(), QRect(depth, 0, 260, 200));
}

TEST(PopoverPlacement, LeadsAtTheRightInARightToLeftLayout) {
    const QRect row(300, 300, 300, 28);
    EXPECT_EQ(PopoverPlacement::beside(row, content, screen, Qt::RightToLeft).window.left(), 600);
    const QRect atTheEdge(700, 300, 300, 28);
    EXPECT_TRUE(PopoverPlacement::beside(atTheEdge, content, screen, Qt::RightToLeft).isArrowRight);
}

TEST(PopoverPlacement, StaysOnTheScreenWithItsArrowAtTheRow) {
    for (const int y : {0, 772}) {
        const QRect row(600, y, 300, 28);
        const auto placement = PopoverPlacement::beside(row, content, screen, Qt::LeftToRight);
        EXPECT_TRUE(screen.contains(placement.window));
        EXPECT_GE(placement.arrowY, FramelessWindow::cornerRadius);
        EXPECT_LE(placement.arrowY, 200 - FramelessWindow::cornerRadius);
    }
}

TEST(PopoverPlacement, ASmallScreenIsNeverLeft) {
    const QRect small(0, 0, 320, 150);
    const auto placement =
        PopoverPlacement::beside({0, 100, 300, 28}, content, small, Qt::LeftToRight);
    EXPECT_TRUE(small.contains(placement.window));
}

} // namespace

} // namespace tarnwick
