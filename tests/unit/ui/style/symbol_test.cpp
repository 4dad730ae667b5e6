// SPDX-License-Identifier: MIT
#include "ui/style/symbol.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <utility>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

const QStringList& allSymbols() {
    static const QStringList names{u"network"_s,
                                   u"network.slash"_s,
                                   u"desktopcomputer"_s,
                                   u"chevron.right"_s,
                                   u"arrow.left.arrow.right"_s,
                                   u"key"_s,
                                   u"arrow.clockwise"_s,
                                   u"arrow.down.circle"_s,
                                   u"globe"_s,
                                   u"xmark.circle"_s,
                                   u"checkmark.circle.fill"_s,
                                   u"circle"_s,
                                   u"trash"_s};
    return names;
}

QImage image(const QString& name, int size, qreal ratio, const QColor& color = Qt::red) {
    return symbolPixmap(name, size, color, ratio).toImage();
}

TEST(Symbol, AllThirteenAreDrawnInTheirColorAndNotClipped) {
    for (const QString& name : allSymbols()) {
        const QImage drawn = image(name, 16, 4);
        ASSERT_FALSE(drawn.isNull()) << qPrintable(name);
        int inked = 0;
        for (int y = 0; y < drawn.height(); ++y)
            for (int x = 0; x < drawn.width(); ++x) {
                const QColor pixel = drawn.pixelColor(x, y);
                inked += pixel.alpha() == 255;
                if (pixel.alpha() == 255) {
                    EXPECT_EQ(pixel.rgb(), QColor(Qt::red).rgb());
                }
                const bool onEdge = x == 0 || y == 0 || x == 63 || y == 63;
                if (onEdge) {
                    EXPECT_LT(pixel.alpha(), 40) << qPrintable(name) << " touches its edge";
                }
            }
        EXPECT_GT(inked, 150) << qPrintable(name);
    }
}

TEST(Symbol, TheSlashStandsApartFromTheNetwork) {
    for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
        const QImage drawn = image(u"network.slash"_s, 16, ratio);
        // From corner to corner; the gap follows it on both sides.
        const double gapOffset = 1.7; // across, in device-independent pixels
        for (double along = 4; along <= 12; along += 1 / ratio) {
            const auto ink = [&](double x, double y) {
                return drawn.pixelColor(int(x * ratio), int(y * ratio)).alphaF();
            };
            EXPECT_GT(ink(along, along), 0.6) << ratio << " at " << along;
            const double half = gapOffset / 2;
            EXPECT_LT(ink(along + half, along - half), 0.45) << ratio << " at " << along;
            EXPECT_LT(ink(along - half, along + half), 0.45) << ratio << " at " << along;
        }
    }
}

TEST(Symbol, HasAPixelForEachOfTheScreen) {
    for (const auto& [ratio, pixels] : {std::pair{1.0, 16}, {1.5, 24}, {2.0, 32}}) {
        const QPixmap pixmap = symbolPixmap(u"key"_s, 16, Qt::black, ratio);
        EXPECT_EQ(pixmap.size(), QSize(pixels, pixels));
        EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(16, 16));
    }
}

TEST(Symbol, IsRenderedOnceForASizeAndColor) {
    const auto first = symbolPixmap(u"globe"_s, 16, Qt::black, 2).cacheKey();
    EXPECT_EQ(symbolPixmap(u"globe"_s, 16, Qt::black, 2).cacheKey(), first);
    EXPECT_NE(symbolPixmap(u"globe"_s, 16, Qt::white, 2).cacheKey(), first);
}

TEST(Symbol, AnUnknownNameIsNullAndPaintsNothing) {
    EXPECT_TRUE(symbolPixmap(u"no.such.symbol"_s, 16, Qt::black, 1).isNull());
    QImage canvas(16, 16, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    const QImage before = canvas;
    QPainter painter(&canvas);
    paintSymbol(painter, canvas.rect(), u"no.such.symbol"_s, 16, Qt::black);
    painter.end();
    EXPECT_EQ(canvas, before);
}

TEST(Symbol, TheChevronTurnsRoundInARightToLeftLayout) {
    const auto painted = [](Qt::LayoutDirection direction) {
        QImage canvas(32, 16, QImage::Format_ARGB32_Premultiplied);
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        paintDirectedSymbol(painter, QRectF(4, 0, 16, 16), u"chevron.right"_s, 16, Qt::black,
                            direction);
        return canvas.copy(4, 0, 16, 16);
    };
    const QImage leftToRight = painted(Qt::LeftToRight);
    EXPECT_NE(painted(Qt::RightToLeft), leftToRight);
    EXPECT_EQ(painted(Qt::RightToLeft), leftToRight.mirrored(true, false));
}

} // namespace

} // namespace tarnwick
