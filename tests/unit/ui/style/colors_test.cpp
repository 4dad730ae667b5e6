// SPDX-License-Identifier: MIT
#include "ui/style/colors.h"

#include <gtest/gtest.h>

#include <utility>

namespace tarnwick {

namespace {

constexpr ThemeColor allColors[] = {ThemeColor::Label, ThemeColor::Secondary, ThemeColor::Green,
                                    ThemeColor::Orange, ThemeColor::Red};

QPalette paletteOf(const QColor& ground, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
    return palette;
}

using GroundAndText = std::pair<QRgb, QRgb>;

class ColorsOfPalette : public testing::TestWithParam<GroundAndText> {
protected:
    const QPalette palette = paletteOf(QColor(GetParam().first), QColor(GetParam().second));
};

TEST_P(ColorsOfPalette, TextsAreLegibleOnTheGroundAndOnAHighlightedRow) {
    const QColor ground = backgroundColor(palette);
    const QColor highlighted = blended(highlightColor(palette), ground);
    for (const ThemeColor color : allColors) {
        EXPECT_GE(contrastRatio(themeColor(color, palette), ground), 4.5) << int(color);
        EXPECT_GE(contrastRatio(themeColor(color, palette), highlighted), 4.5) << int(color);
    }
    EXPECT_GE(contrastRatio(focusColor(palette), ground), 3.0);
}

TEST_P(ColorsOfPalette, ColorsKeepTheirHue) {
    const QColor green = themeColor(ThemeColor::Green, palette);
    EXPECT_GT(green.green(), green.red());
    EXPECT_GT(green.green(), green.blue());
    const QColor red = themeColor(ThemeColor::Red, palette);
    EXPECT_GT(red.red(), red.green());
    EXPECT_GT(red.red(), red.blue());
    const QColor orange = themeColor(ThemeColor::Orange, palette);
    EXPECT_GT(orange.red(), orange.green());
    EXPECT_GT(orange.green(), orange.blue());
}

INSTANTIATE_TEST_SUITE_P(
    Palettes, ColorsOfPalette,
    testing::Values(GroundAndText(0xffffff, 0x000000), GroundAndText(0xefefef, 0x000000),
                    GroundAndText(0xf6f5f4, 0x2e3436), GroundAndText(0x242424, 0xffffff),
                    GroundAndText(0x353535, 0xeeeeec), GroundAndText(0x000000, 0xffffff),
                    GroundAndText(0xfdf6e3, 0x657b83)));

TEST(Colors, DarkIsWhereTextsAreLighterThanTheGround) {
    EXPECT_FALSE(isDark(paletteOf(Qt::white, Qt::black)));
    EXPECT_TRUE(isDark(paletteOf(QColor(0x24, 0x24, 0x24), Qt::white)));
}

TEST(Colors, HighlightIsTheLabelColorAtEightPercent) {
    const QColor highlight = highlightColor(paletteOf(Qt::white, QColor(10, 20, 30)));
    EXPECT_EQ(highlight.rgb(), QColor(10, 20, 30).rgb());
    EXPECT_NEAR(highlight.alphaF(), 0.08, 0.002);
}

TEST(Colors, OfflineDotIsGreyAtFortyPercent) {
    EXPECT_NEAR(offlineDotColor().alphaF(), 0.4, 0.002);
    EXPECT_LT(offlineDotColor().hsvSaturation(), 20);
}

TEST(Colors, ContrastIsThatOfWcag) {
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::white, QColor(0x76, 0x76, 0x76)), 4.54, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::red, Qt::red), 1.0, 0.001);
}

} // namespace

} // namespace tarnwick
