// SPDX-License-Identifier: MIT
#include "ui/style/menu_bar_icon.h"
#include "ui/style/symbol.h"

#include <QFile>
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPixmap>
#include <QStringList>
#include <QSvgRenderer>
#include <QtEndian>

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QByteArray embeddedPng() {
    return QByteArray::fromBase64(menuBarIconText);
}

QStringList chunkNames(const QByteArray& png) {
    QStringList names;
    for (qsizetype at = 8; at + 12 <= png.size();) {
        const auto length = qFromBigEndian<quint32>(png.constData() + at);
        names.append(QString::fromLatin1(png.mid(at + 4, 4)));
        at += 12 + static_cast<qsizetype>(length);
    }
    return names;
}

/// Share of an icon's visible pixels that differ from `ground` by more than a third.
double visibleShare(const QIcon& icon, int size, int ground) {
    const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
    int visible = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const int shown =
                (qGray(color.rgb()) * color.alpha() + ground * (255 - color.alpha())) / 255;
            visible += std::abs(shown - ground) > 255 / 3 ? 1 : 0;
        }
    }
    return static_cast<double>(visible) / (size * size);
}

QByteArray symbolicIcon() {
    QFile file(QStringLiteral(TARNWICK_SYMBOLIC_ICON));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// The colour that a picture has in its middle.
QColor middleOf(const QByteArray& svg) {
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(svg).render(&painter);
    painter.end();
    return image.pixelColor(8, 8);
}

} // namespace

TEST(MenuBarIcon, EmbeddedImageDecodesTo36PixelsShownAt18AsATemplate) {
    const QImage image = QImage::fromData(embeddedPng(), "PNG");
    EXPECT_EQ(image.size(), QSize(36, 36));

    const MenuBarIcon icon = MenuBarIcon::make(macOSPlatform());
    EXPECT_EQ(icon.size, QSize(18, 18));
    EXPECT_TRUE(icon.isTemplate);
    EXPECT_TRUE(icon.icon.isMask());
    ASSERT_EQ(icon.icon.availableSizes(), QList<QSize>({QSize(36, 36)}));
    const QPixmap pixmap = icon.icon.pixmap(QSize(18, 18), 2.0);
    EXPECT_EQ(pixmap.size(), QSize(36, 36));
    EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(18, 18));
}

TEST(MenuBarIcon, InvalidTextStillShowsTheNetworkSymbolWithItsDescription) {
    const QByteArray truncated = QByteArray(menuBarIconText).left(100);
    const QByteArray notBase64 = "*" + QByteArray(menuBarIconText);
    for (const QByteArray& text : {QByteArray(), notBase64, truncated, QByteArray("AAAA")}) {
        for (const Platform& platform : {macOSPlatform(), linuxPlatform()}) {
            const MenuBarIcon icon = MenuBarIcon::make(platform, text);
            const QImage shown = icon.icon.pixmap(QSize(18, 18), 1.0).toImage();
            EXPECT_EQ(shown, symbolPixmap(u"network"_s, 18, QColor(0x88, 0x88, 0x88), 1).toImage());
            EXPECT_EQ(icon.accessibleDescription, u"Tarnwick Network"_s);
            EXPECT_TRUE(icon.size.isEmpty());
        }
    }
}

TEST(MenuBarIcon, TheEmbeddedPngHasExactlyTheChunksItNeeds) {
    const QByteArray png = embeddedPng();
    EXPECT_EQ(chunkNames(png), QStringList({u"IHDR"_s, u"bKGD"_s, u"IDAT"_s, u"IEND"_s}));
    EXPECT_EQ(png.mid(24, 5).toHex(), QByteArray("0806000000"));   // 8 bits, RGBA, not interlaced
    EXPECT_EQ(png.mid(41, 6).toHex(), QByteArray("00ff00ff00ff")); // bKGD: white
}

TEST(MenuBarIcon, TheEmbeddedPictureIsALightGreyGlyphOnNothing) {
    const QImage image = QImage::fromData(embeddedPng());
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(17, 17), QColor(0xd9, 0xd9, 0xd9));
    EXPECT_EQ(image.pixelColor(17, 4).alpha(), 255); // the topmost satellite
}

TEST(MenuBarIcon, WhatIsDrawnInItsPlaceIsAHubWithSixSatellites) {
    constexpr int size = 96;
    const QImage image =
        MenuBarIcon::make(linuxPlatform()).icon.pixmap(QSize(size, size), 1.0).toImage();
    const auto opacityAt = [&image](double degrees) {
        const QLineF toRim = QLineF::fromPolar(size * 0.475, degrees); // just inside a satellite's
        return image.pixelColor((toRim.p2() + QPointF(size, size) / 2).toPoint()).alpha();
    };
    EXPECT_EQ(image.pixelColor(size / 2, size / 2).alpha(), 255);
    for (int sixth = 0; sixth < 6; ++sixth) {
        EXPECT_EQ(opacityAt(sixth * 60 + 90), 255) << sixth;
        EXPECT_EQ(opacityAt(sixth * 60 + 60), 0) << sixth;
    }
}

TEST(MenuBarIcon, IsLegibleOnDarkAndOnLightWhereNothingTintsIt) {
    const MenuBarIcon icon = MenuBarIcon::make(linuxPlatform());
    EXPECT_FALSE(icon.isTemplate);
    for (const int size : {16, 22, 24, 48}) {
        EXPECT_GT(visibleShare(icon.icon, size, 0x20), 0.1) << size;
        EXPECT_GT(visibleShare(icon.icon, size, 0xf4), 0.1) << size;
    }
}

// GTK's hosts look for the root element in that many bytes, or show nothing.
TEST(MenuBarIcon, TheSymbolicIconIsRecognisedAsSvgByItsFirst256Bytes) {
    EXPECT_TRUE(symbolicIcon().left(256).contains("<svg "));
}

// Plasma replaces the style sheet of that id by one with the colours of its theme.
TEST(MenuBarIcon, TheSymbolicIconTakesTheColorOfPlasmasStyleSheet) {
    QByteArray svg = symbolicIcon();
    EXPECT_EQ(middleOf(svg), QColor(0x88, 0x88, 0x88));

    const QByteArray begin = R"(<style id="current-color-scheme" type="text/css">)";
    const qsizetype sheet = svg.indexOf(begin) + begin.size();
    ASSERT_GE(sheet, begin.size());
    svg.replace(sheet, svg.indexOf("</style>") - sheet, ".ColorScheme-Text { color: #fcfcfc; }");
    EXPECT_EQ(middleOf(svg), QColor(0xfc, 0xfc, 0xfc));
}

} // namespace tarnwick
