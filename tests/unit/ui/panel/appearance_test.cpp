// SPDX-License-Identifier: MIT
#include "panel_on_screen.h"
#include "ui/panel/panel_sections.h"
#include "ui/style/row_painting.h"

#include <QScopeGuard>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

class Appearance : public test::PanelOnScreen {
protected:
    /// The lowest row of pixels there with something clearly painted on white.
    static int lastInkedRow(const QImage& image, const QRect& part) {
        constexpr int clearly = 150;
        for (int y = part.bottom(); y >= part.top(); --y)
            for (int x = part.left(); x <= part.right(); ++x)
                if (qGray(image.pixel(x, y)) <= clearly)
                    return y;
        return -1;
    }
};

TEST_F(Appearance, RightToLeftLayoutsMirror) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    DaemonState state = test::connectedState();
    state.devices = test::numberedDevices(2);
    test::publish(*daemon, state);
    panel->openAt({20, 40});
    settle();
    EXPECT_EQ(placeIn(find<HeaderView>()->status(), *panel).right(), 300 - 16 - 16 - 8 - 1);
    EXPECT_EQ(placeIn(find<InfoView>()->value(0), *panel).left(), 16);
    auto* entry = find<DevicesSubmenu>();
    click(entry);
    EXPECT_EQ(entry->popover()->x(), panel->geometry().right() + 1) << "beside the leading edge";
    const DeviceRow& row = *deviceRow(*entry, 0);
    EXPECT_EQ(row.dotRect().right(), 260 - 16 - 1);
    EXPECT_EQ(row.os().x(), 16);
}

TEST_F(Appearance, TextsOfTwiceTheSizeFitWhileItIsOpen) {
    const QFont original = QApplication::font();
    const auto restore = qScopeGuard([&] { QApplication::setFont(original); });
    DaemonState state = test::connectedState();
    state.devices = test::numberedDevices(3);
    open(state);
    auto* entry = find<DevicesSubmenu>();
    click(entry);
    const int entryHeight = entry->height();
    const int rowHeight = deviceRow(*entry, 0)->height();
    const int panelHeight = panel->height();
    QFont large = original;
    large.setPixelSize(26);
    QApplication::setFont(large);
    settle();
    EXPECT_GT(entry->height(), entryHeight);
    EXPECT_GT(deviceRow(*entry, 0)->height(), rowHeight);
    EXPECT_GE(deviceRow(*entry, 1)->y(), deviceRow(*entry, 0)->geometry().bottom());
    EXPECT_GT(panel->height(), panelHeight);
    EXPECT_EQ(panel->width(), 300);
    for (const StyledLabel* label : panel->findChildren<StyledLabel*>()) {
        EXPECT_EQ(label->font().pixelSize(), label->look().font().pixelSize());
        EXPECT_GE(label->height(), label->fontMetrics().height()) << qPrintable(label->text());
    }
    QApplication::setFont(original);
    settle();
    EXPECT_EQ(panel->height(), panelHeight);
    EXPECT_EQ(entry->height(), entryHeight);
    EXPECT_EQ(deviceRow(*entry, 0)->height(), rowHeight);
}

TEST_F(Appearance, CountSharesTheBaselineOfItsTitle) {
    DaemonState state = test::connectedState();
    state.devices = test::numberedDevices(3);
    open(state);
    const auto* entry = find<DevicesSubmenu>();
    // Both are centred vertically, in the same look.
    EXPECT_EQ(entry->count().y(), 0);
    EXPECT_EQ(entry->count().height(), entry->height());
    EXPECT_EQ(entry->count().look(), TextLook{TextStyle::Caption});
}

TEST_F(Appearance, AddressSharesTheBaselineOfItsLabel) {
    DaemonState state = test::connectedState();
    state.ipAddress = u"111.111.1.1"_s; // no digit that reaches below the line
    open(state);
    auto* info = find<InfoView>();
    for (const int scale : {1, 2, 3}) {
        QImage image(info->size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        info->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        const int middle = image.width() / 2;
        const int end = (info->value(0).geometry().bottom() + 2) * scale;
        EXPECT_EQ(lastInkedRow(image, QRect(0, 0, middle, end)),
                  lastInkedRow(image, QRect(middle, 0, middle, end)))
            << "at scale " << scale;
    }
}

TEST_F(Appearance, HighlightKeepsClearOfThePanelsEdges) {
    DaemonState state = test::connectedState();
    state.devices = test::numberedDevices(3);
    open(state);
    auto* entry = find<DevicesSubmenu>();
    const QImage plain = entry->grab().toImage();
    click(entry);
    const QImage highlighted = entry->grab().toImage();
    const int middle = entry->height() / 2;
    for (const int edge : {0, 1, entry->width() - 2, entry->width() - 1})
        EXPECT_EQ(highlighted.pixel(edge, middle), plain.pixel(edge, middle)) << edge;
    EXPECT_NE(highlighted.pixel(8, middle), plain.pixel(8, middle));
}

TEST_F(Appearance, HeaderLinesUpWithTheRowsAtEverySizeOfText) {
    const QFont original = QApplication::font();
    const auto restore = qScopeGuard([&] { QApplication::setFont(original); });
    open(test::connectedState());
    const HeaderView& header = *find<HeaderView>();
    for (const int pixels : {13, 14, 15, 16, 17, 20, 26}) {
        QFont font = original;
        font.setPixelSize(pixels);
        QApplication::setFont(font);
        settle();
        const QRect symbol = placeIn(header.symbol(), *panel);
        EXPECT_EQ(symbol.left() + symbol.right() + 1, 2 * 16 + symbolColumnWidth()) << pixels;
        EXPECT_EQ(placeIn(header.status(), *panel).left(), 16 + symbolColumnWidth() + 8) << pixels;
    }
}

TEST_F(Appearance, DarkAndLightFollowThePaletteWhileRunning) {
    const QPalette original = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(original); });
    const auto groundOf = [this] {
        return panel->grab().toImage().pixelColor(150, 4);
    };
    for (const QColor& ground : {QColor(0x24, 0x24, 0x24), QColor(0xfa, 0xfa, 0xfa)}) {
        QPalette palette(ground);
        palette.setColor(QPalette::Window, ground);
        palette.setColor(QPalette::WindowText, ground.lightness() < 128 ? Qt::white : Qt::black);
        QApplication::setPalette(palette);
        if (!panel->isVisible())
            open(test::connectedState());
        settle();
        EXPECT_EQ(groundOf().rgb(), ground.rgb());
        const ElidedLabel& status = find<HeaderView>()->status();
        EXPECT_GE(contrastRatio(status.textColor(), ground), 4.5);
    }
}

} // namespace

} // namespace tarnwick
