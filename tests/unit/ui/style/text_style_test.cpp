// SPDX-License-Identifier: MIT
#include "support/pitch.h"
#include "ui/style/text_style.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

class TextStyleAtSize : public testing::Test {
protected:
    ~TextStyleAtSize() override { QApplication::setFont(original_); }

    static void setApplicationFontSize(int pixels) {
        QFont font = QApplication::font();
        font.setPixelSize(pixels);
        QApplication::setFont(font);
    }

private:
    const QFont original_ = QApplication::font();
};

TEST_F(TextStyleAtSize, DefaultFontsOfNineAndTenPointsGiveTheNominalSizes) {
    for (const int usual : {12, 13}) {
        setApplicationFontSize(usual);
        EXPECT_EQ(scaledSize(TextStyle::Title2), 17);
        EXPECT_EQ(scaledSize(TextStyle::Title3), 15);
        EXPECT_EQ(scaledSize(TextStyle::Headline), 13);
        EXPECT_EQ(scaledSize(TextStyle::Body), 13);
        EXPECT_EQ(scaledSize(TextStyle::Caption), 11);
        EXPECT_EQ(scaledSize(TextStyle::Caption2), 11);
    }
}

TEST_F(TextStyleAtSize, AllStylesFollowTheDesktopsFont) {
    setApplicationFontSize(15); // 11 points
    EXPECT_EQ(scaledSize(TextStyle::Body), 15);
    EXPECT_EQ(scaledSize(TextStyle::Caption), 13);
    setApplicationFontSize(20);
    EXPECT_EQ(scaledSize(TextStyle::Body), 20);
    EXPECT_EQ(scaledSize(TextStyle::Caption), 17);
    setApplicationFontSize(30);
    EXPECT_EQ(scaledSize(TextStyle::Body), 26);
    EXPECT_EQ(scaledSize(TextStyle::Caption), 22);
    setApplicationFontSize(10);
    EXPECT_EQ(scaledSize(TextStyle::Body), 11);
    setApplicationFontSize(500);
    EXPECT_EQ(scaledSize(TextStyle::Body), 26) << "beyond twice the size nothing fits";
}

TEST(TextStyle, WeightsAndDesigns) {
    const TextLook headline{TextStyle::Headline};
    EXPECT_EQ(headline.font().weight(), QFont::DemiBold);
    EXPECT_EQ(TextLook{TextStyle::Body}.font().weight(), QFont::Normal);
    const TextLook name{TextStyle::Caption, TextWeight::Medium};
    EXPECT_EQ(name.font().weight(), QFont::Medium);
    EXPECT_EQ(name.font().pixelSize(), scaledSize(TextStyle::Caption));
    const TextLook address{TextStyle::Caption, TextWeight::Natural, TextDesign::Monospaced};
    EXPECT_TRUE(test::hasOnePitch(address.font()));
    EXPECT_FALSE(test::hasOnePitch(TextLook{}.font()));
}

} // namespace

} // namespace tarnwick
