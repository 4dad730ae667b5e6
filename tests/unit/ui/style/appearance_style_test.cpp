// SPDX-License-Identifier: MIT
#include "ui/style/appearance_style.h"
#include "ui/style/colors.h"
#include "ui/style/text_style.h"

#include <QApplication>
#include <QFontDatabase>

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;
using Scheme = Appearance::Scheme;

namespace {

constexpr QRgb violet = qRgb(0x91, 0x41, 0xac);

class AppearanceStyleTest : public testing::Test {
protected:
    ~AppearanceStyleTest() override {
        style_.apply({});
        QApplication::setFont(font_);
    }

    static QRgb color(QPalette::ColorRole role) {
        return QApplication::palette().color(role).rgb();
    }

    AppearanceStyle style_;

private:
    const QFont font_ = QApplication::font();
};

} // namespace

TEST_F(AppearanceStyleTest, SchemeIsSetWhole) {
    const QPalette own = QApplication::palette();
    for (const auto scheme : {Scheme::Dark, Scheme::Light}) {
        style_.apply({.scheme = scheme});
        const QPalette palette = QApplication::palette();
        EXPECT_EQ(isDark(palette), scheme == Scheme::Dark);
        for (const auto role : {QPalette::Base, QPalette::Button, QPalette::ToolTipBase})
            EXPECT_EQ(palette.color(role), palette.color(QPalette::Window)) << int(role);
        for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
            EXPECT_EQ(palette.color(role), palette.color(QPalette::WindowText)) << int(role);
    }
    style_.apply({});
    EXPECT_EQ(QApplication::palette(), own);
}

TEST_F(AppearanceStyleTest, SchemeIsTheSameWhateverQtHasItself) {
    const Appearance dark{.scheme = Scheme::Dark};
    const QPalette light(QColor(0xef, 0xef, 0xef));
    const QPalette qtsDark(QColor(0x32, 0x32, 0x32));
    for (const auto role : {QPalette::Window, QPalette::WindowText, QPalette::Highlight})
        EXPECT_EQ(paletteFor(dark, light).color(role), paletteFor(dark, qtsDark).color(role));
}

TEST_F(AppearanceStyleTest, ColorsComeBeforeTheScheme) {
    const Appearance::Colors colors{QColor(1, 2, 3), QColor(200, 201, 202)};
    style_.apply({.scheme = Scheme::Light, .colors = colors, .accent = QColor(violet)});
    EXPECT_EQ(color(QPalette::Window), colors.background.rgb());
    EXPECT_EQ(color(QPalette::WindowText), colors.text.rgb());
    EXPECT_EQ(color(QPalette::Highlight), violet);
}

TEST_F(AppearanceStyleTest, ColorsThatQtHasLeaveItsPaletteAlone) {
    const QPalette own = QApplication::palette();
    style_.apply(
        {.colors = Appearance::Colors{own.color(QPalette::Window), own.color(QPalette::WindowText)},
         .accent = QColor(violet)});
    EXPECT_EQ(QApplication::palette(), own);
}

TEST_F(AppearanceStyleTest, HighContrastIsBlackAndWhite) {
    style_.apply({.scheme = Scheme::Dark, .hasHighContrast = true});
    EXPECT_EQ(color(QPalette::Window), QColor(Qt::black).rgb());
    EXPECT_EQ(color(QPalette::WindowText), QColor(Qt::white).rgb());
    style_.apply({.scheme = Scheme::Light, .hasHighContrast = true});
    EXPECT_EQ(color(QPalette::Window), QColor(Qt::white).rgb());
    EXPECT_EQ(color(QPalette::WindowText), QColor(Qt::black).rgb());
}

TEST_F(AppearanceStyleTest, HighContrastWithoutASchemeKeepsQts) {
    const Appearance contrast{.hasHighContrast = true};
    QPalette own(QColor(0x32, 0x32, 0x32));
    own.setColor(QPalette::WindowText, Qt::white);
    EXPECT_EQ(paletteFor(contrast, own).color(QPalette::Window), QColor(Qt::black));
    own.setColor(QPalette::Window, Qt::white);
    own.setColor(QPalette::WindowText, Qt::black);
    EXPECT_EQ(paletteFor(contrast, own).color(QPalette::Window), QColor(Qt::white));
}

TEST_F(AppearanceStyleTest, AccentAloneLeavesTheOthersToQt) {
    const QRgb window = color(QPalette::Window);
    style_.apply({.accent = QColor(violet)});
    EXPECT_EQ(color(QPalette::Highlight), violet);
    EXPECT_EQ(color(QPalette::HighlightedText), QColor(Qt::white).rgb());
    EXPECT_EQ(color(QPalette::Window), window);
    style_.apply({.scheme = Scheme::Dark, .accent = QColor(violet)});
    EXPECT_EQ(color(QPalette::Highlight), violet);
}

TEST_F(AppearanceStyleTest, FontHasTheSizeTimesTheTextScale) {
    style_.apply({.font = Appearance::Font{u"DejaVu Sans"_s, 10}});
    EXPECT_EQ(QApplication::font().family(), u"DejaVu Sans"_s);
    EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), 10);
    style_.apply({.font = Appearance::Font{u"DejaVu Sans"_s, 10}, .textScale = 1.5});
    EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), 15);
    style_.apply({});
    EXPECT_EQ(QApplication::font(), QFontDatabase::systemFont(QFontDatabase::GeneralFont));
}

TEST_F(AppearanceStyleTest, TextScaleWithoutAFontEnlargesQts) {
    const double points = QFontDatabase::systemFont(QFontDatabase::GeneralFont).pointSizeF();
    style_.apply({.textScale = 2});
    EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), 2 * points);
    style_.apply({.textScale = 1.25});
    EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), 1.25 * points);
}

TEST_F(AppearanceStyleTest, MonospacedTextsHaveTheirOwnFamily) {
    const TextLook look{TextStyle::Caption, TextWeight::Natural, TextDesign::Monospaced};
    const QFont own = look.font();
    style_.apply({.monospacedFont = Appearance::Font{u"Nimbus Mono PS"_s, 10}});
    EXPECT_EQ(look.font().family(), u"Nimbus Mono PS"_s);
    EXPECT_NE(TextLook{}.font().family(), u"Nimbus Mono PS"_s);
    style_.apply({});
    EXPECT_EQ(look.font(), own);
}

TEST_F(AppearanceStyleTest, NothingChosenTouchesNothing) {
    const QPalette own(QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(paletteFor({}, own).resolveMask(), QPalette().resolveMask());
    QFont font = QApplication::font();
    font.setPixelSize(17);
    QApplication::setFont(font);
    style_.apply({});
    EXPECT_EQ(QApplication::font().pixelSize(), 17);
}

} // namespace tarnwick
