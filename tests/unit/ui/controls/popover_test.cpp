// SPDX-License-Identifier: MIT
#include "ui/controls/popover.h"

#include <QList>
#include <QPainterPath>
#include <QPainterPathStroker>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

constexpr QRect screen(0, 0, 1000, 800);
constexpr QSize content(260, 200);
constexpr int depth = PopoverPlacement::arrowDepth;

TEST(PopoverPlacement, StandsAtTheLeadingEdgeWithItsArrowAtTheRow) {
    const QRect row(600, 300, 300, 28);
    const auto placement = PopoverPlacement::beside(row, content, screen, Qt::LeftToRight);
    const int middle = 300 + 28 / 2;
    EXPECT_EQ(placement.window, QRect(600 - 260 - depth, middle - 100, 260 + depth, 200));
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

/// Placements with the arrow on either side, at a row in the middle and near either end of the
/// screen, where the arrow comes near a corner.
QList<PopoverPlacement> everyKindOfPlacement() {
    QList<PopoverPlacement> placements;
    for (const int x : {600, 100})
        for (const int y : {300, 0, 772})
            placements.append(
                PopoverPlacement::beside({x, y, 300, 28}, content, screen, Qt::LeftToRight));
    return placements;
}

TEST(PopoverOutline, IsOnePathAroundBodyAndArrow) {
    for (const PopoverPlacement& placement : everyKindOfPlacement()) {
        const QPainterPath outline = placement.outline();
        EXPECT_EQ(outline.toSubpathPolygons().size(), 1);
        EXPECT_EQ(outline.boundingRect().toAlignedRect(),
                  QRect(QPoint(0, 0), placement.window.size()));
    }
}

TEST(PopoverOutline, DoesNotCrossTheArrowsBase) {
    for (const PopoverPlacement& placement : everyKindOfPlacement()) {
        const QRectF body = placement.contentRect();
        QPainterPathStroker line;
        line.setWidth(0.5);
        const QPainterPath drawn = line.createStroke(placement.outline());
        const double base = placement.isArrowRight ? body.right() : body.left();
        EXPECT_FALSE(drawn.contains(QPointF(base, placement.arrowY)));
        EXPECT_TRUE(placement.outline().contains(QPointF(base, placement.arrowY)));
    }
}

TEST(PopoverOutline, KeepsItsCornersRoundAndTheArrowAtItsPlace) {
    for (const PopoverPlacement& placement : everyKindOfPlacement()) {
        const QPainterPath outline = placement.outline();
        const QRectF body = placement.contentRect();
        for (const double x : {body.left(), body.right() - 1})
            for (const double y : {body.top(), body.bottom() - 1})
                EXPECT_FALSE(outline.intersects(QRectF(x, y, 1, 1)));
        EXPECT_TRUE(outline.contains(body.adjusted(3, 3, -3, -3)));
        const double tip = placement.isArrowRight ? placement.window.width() - 1.5 : 1.5;
        EXPECT_TRUE(outline.contains(QPointF(tip, placement.arrowY)));
        EXPECT_FALSE(outline.contains(QPointF(tip, placement.arrowY - 4)));
        EXPECT_FALSE(outline.contains(QPointF(tip, placement.arrowY + 4)));
    }
}

TEST(PopoverOutline, OfAPopoverWithoutRoomForTheArrowHasASmallerArrow) {
    PopoverPlacement placement;
    placement.window = QRect(0, 0, 100, 34);
    placement.arrowY = 17;
    const QPainterPath outline = placement.outline();
    EXPECT_TRUE(QRectF(placement.window).contains(outline.boundingRect()));
    EXPECT_GT(outline.boundingRect().width(), placement.contentRect().width());
    EXPECT_TRUE(outline.contains(QRectF(placement.contentRect()).adjusted(3, 3, -3, -3)));
}

} // namespace

} // namespace tarnwick
