// SPDX-License-Identifier: MIT
#include "ui/style/appearance_style.h"
#include "ui/style/colors.h"

#include <gtest/gtest.h>

#include <ostream>
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

TEST_P(ColorsOfPalette, TextsAreLegible) {
    const QColor background = backgroundColor(palette);
    const QColor highlighted = blended(highlightColor(palette), background);
    for (const ThemeColor color : allColors)
        EXPECT_GE(contrastRatio(themeColor(color, palette), background), 4.5) << int(color);
    for (const ThemeColor color : {ThemeColor::Label, ThemeColor::Secondary})
        EXPECT_GE(contrastRatio(themeColor(color, palette), highlighted), 4.5) << int(color);
}

TEST_P(ColorsOfPalette, DotsAndTheFocusRingStandOut) {
    const QColor background = backgroundColor(palette);
    EXPECT_GE(contrastRatio(shapeColor(ThemeColor::Green, palette), background), 3.0);
    EXPECT_GE(contrastRatio(shapeColor(ThemeColor::Red, palette), background), 3.0);
    EXPECT_GE(contrastRatio(focusColor(palette), background), 3.0);
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

/// The palettes that desktops have: ours for each preference, Qt's own and Plasma's.
struct DesktopPalette {
    const char* name;
    QPalette palette;
    bool hasHighContrast;
};

void PrintTo(const DesktopPalette& of, std::ostream* stream) {
    *stream << of.name;
}

QPalette ours(Appearance::Scheme scheme, bool highContrast) {
    Appearance appearance;
    appearance.scheme = scheme;
    appearance.hasHighContrast = highContrast;
    return paletteFor(appearance, {});
}

QPalette breeze(QRgb background, QRgb text) {
    QPalette palette = paletteOf(QColor(background), QColor(text));
    palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
    return palette;
}

class ColorsOfDesktop : public testing::TestWithParam<DesktopPalette> {
protected:
    double contrast(const QColor& color) const {
        return contrastRatio(color, backgroundColor(palette()));
    }

    const QPalette& palette() const { return GetParam().palette; }

    const double text = GetParam().hasHighContrast ? 7 : 4.5;
    const double shape = GetParam().hasHighContrast ? 4.5 : 3;
};

TEST_P(ColorsOfDesktop, HighContrastIsRecognised) {
    EXPECT_EQ(hasHighContrast(palette()), GetParam().hasHighContrast);
}

TEST_P(ColorsOfDesktop, TextsAndShapesHaveTheirContrast) {
    for (const ThemeColor color : allColors) {
        EXPECT_GE(contrast(themeColor(color, palette())), text) << int(color);
        EXPECT_GE(contrast(shapeColor(color, palette())), shape) << int(color);
    }
    if (GetParam().hasHighContrast) {
        EXPECT_GE(contrast(borderColor(palette())), 3);
        EXPECT_GE(contrast(dividerColor(palette())), 3);
    }
}

TEST_P(ColorsOfDesktop, GreenAndOrangeAreNoDullerThanNeeded) {
    for (const ThemeColor color : {ThemeColor::Green, ThemeColor::Orange}) {
        const QColor shown = themeColor(color, palette());
        if (!isDark(palette())) {
            EXPECT_GE(shown.hsvSaturationF(), 0.9) << int(color);
            EXPECT_LE(contrast(shown), text * 1.08) << int(color);
        }
        EXPECT_GE(shapeColor(color, palette()).valueF(), shown.valueF()) << int(color);
    }
}

TEST_P(ColorsOfDesktop, EveryAccentIsLegibleAndItsRingStandsOut) {
    // GNOME's nine, Plasma's, and the extremes.
    for (const QRgb accent :
         {0x3584e4U, 0x2190a4U, 0x3a944aU, 0xc88800U, 0xed5b00U, 0xe62d42U, 0xd56199U, 0x9141acU,
          0x6f8396U, 0x3daee9U, 0x000000U, 0xffffffU, 0xffff00U}) {
        QPalette accented = palette();
        accented.setColor(QPalette::Highlight, QColor(accent));
        const auto [background, title] = prominentColors(accented);
        EXPECT_GE(contrastRatio(title, background), text) << std::hex << accent;
        EXPECT_GE(contrast(focusColor(accented)), shape) << std::hex << accent;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, ColorsOfDesktop,
    testing::Values(DesktopPalette{"light", ours(Appearance::Scheme::Light, false), false},
                    DesktopPalette{"dark", ours(Appearance::Scheme::Dark, false), false},
                    DesktopPalette{"light contrast", ours(Appearance::Scheme::Light, true), true},
                    DesktopPalette{"dark contrast", ours(Appearance::Scheme::Dark, true), true},
                    DesktopPalette{"Qt light", breeze(0xffefefef, 0xff000000), false},
                    DesktopPalette{"Qt dark", breeze(0xff323232, 0xffffffff), false},
                    DesktopPalette{"Breeze", breeze(0xffeff0f1, 0xff232629), false},
                    DesktopPalette{"Breeze Dark", breeze(0xff2a2e32, 0xfffcfcfc), false}));

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
