// SPDX-License-Identifier: MIT
#include "panel_on_screen.h"
#include "ui/panel/devices_submenu.h"

#include <QAccessible>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::connectedState;

class DevicesSubmenuTest : public test::PanelOnScreen {
protected:
    static DaemonState withDevices(const QList<DeviceInfo>& devices) {
        DaemonState state = connectedState();
        state.devices = devices;
        return state;
    }

    DevicesSubmenu* openList(const QList<DeviceInfo>& devices) {
        open(withDevices(devices));
        auto* entry = find<DevicesSubmenu>();
        click(entry);
        settle();
        return entry;
    }

    static void moveThePointerOnto(QWidget* row) {
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QCoreApplication::sendEvent(row, &enter);
    }

    static void moveThePointerAway(QWidget* row) {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(row, &leave);
    }

    /// The ground at the end of the row, where nothing else is painted.
    static QColor groundColor(QWidget& row) {
        return row.grab().toImage().pixelColor(row.width() - 40, 4);
    }
};

TEST_F(DevicesSubmenuTest, TwelveDevicesScrollBelowAHeadingThatStays) {
    auto* entry = openList(test::numberedDevices(12));
    const PopoverList& list = *entry->list();
    EXPECT_EQ(list.width(), 260);
    EXPECT_EQ(list.scrollArea()->height(), 300);
    EXPECT_GT(list.rows().height(), 300);
    const QRect heading = list.heading()->geometry();
    EXPECT_EQ(heading.topLeft(), QPoint(12, 8));
    EXPECT_EQ(list.scrollArea()->y(), heading.bottom() + 1 + 2);
    EXPECT_EQ(list.height() - list.scrollArea()->geometry().bottom() - 1, 8);
    EXPECT_FALSE(list.scrollArea()->isAncestorOf(list.heading()));
    auto* bar = list.scrollArea()->findChild<OverlayScrollBar*>();
    bar->setValue(bar->maximum());
    EXPECT_EQ(list.heading()->geometry(), heading);
    EXPECT_EQ(placeIn(*deviceRow(*entry, 11), list).bottom(),
              list.scrollArea()->geometry().bottom());
}

TEST_F(DevicesSubmenuTest, FewDevicesTakeOnlyTheirHeight) {
    auto* entry = openList(test::numberedDevices(2));
    EXPECT_EQ(entry->list()->scrollArea()->height(), 2 * deviceRow(*entry, 0)->height() + 2);
}

TEST_F(DevicesSubmenuTest, NoAddressIsAnEmptyLineAndNoSystemIsNothing) {
    DeviceInfo bare = test::device(u"bare"_s);
    bare.tailscaleIPs.clear();
    bare.os.clear();
    auto* entry = openList({test::device(u"full"_s), bare});
    const DeviceRow& row = *deviceRow(*entry, 1);
    EXPECT_EQ(row.address().text(), ""_L1);
    EXPECT_EQ(row.os().width(), 0);
    EXPECT_EQ(row.sizeHint(), deviceRow(*entry, 0)->sizeHint()) << "the line is empty, not missing";
    EXPECT_EQ(row.name().geometry().right(), 260 - 16 - 1) << "the name has the whole width";
    EXPECT_EQ(deviceRow(*entry, 0)->os().geometry().right(), 260 - 16 - 1);
}

TEST_F(DevicesSubmenuTest, OnlineDotsAreGreenAndOfflineOnesGreyAtFortyPercent) {
    auto* entry = openList({test::device(u"on"_s, true), test::device(u"off"_s, false)});
    const DeviceRow& online = *deviceRow(*entry, 0);
    EXPECT_EQ(online.dotColor(), shapeColor(ThemeColor::Green, online.palette()));
    EXPECT_EQ(online.dotRect().size(), QSize(8, 8));
    EXPECT_EQ(online.dotRect().left(), 16);
    EXPECT_EQ(online.name().x(), 16 + 8 + 8);
    EXPECT_EQ(deviceRow(*entry, 1)->dotColor(), offlineDotColor());
    EXPECT_GE(contrastRatio(online.dotColor(), backgroundColor(online.palette())), 3.0);
    const QImage painted = const_cast<DeviceRow&>(online).grab().toImage();
    EXPECT_EQ(painted.pixelColor(online.dotRect().center()).rgb(), online.dotColor().rgb());
}

TEST_F(DevicesSubmenuTest, CountIsTheNumberOfDevices) {
    open(withDevices(test::numberedDevices(1)));
    EXPECT_EQ(find<DevicesSubmenu>()->count().text(), "(1)"_L1);
    show(withDevices(test::numberedDevices(4)));
    EXPECT_EQ(find<DevicesSubmenu>()->count().text(), "(4)"_L1);
    EXPECT_EQ(find<DevicesSubmenu>()->accessibleName(), "Devices"_L1);
}

TEST_F(DevicesSubmenuTest, HoveringHighlightsAndOnlyAClickOpens) {
    open(withDevices(test::numberedDevices(3)));
    auto* entry = find<DevicesSubmenu>();
    const QColor plain = groundColor(*entry);
    moveThePointerOnto(entry);
    EXPECT_TRUE(entry->isHovering());
    test::runEventLoopFor(std::chrono::milliseconds(700)); // nor after a while, as menus do
    EXPECT_FALSE(entry->isPopoverPresented());
    EXPECT_NE(groundColor(*entry), plain);

    click(entry);
    EXPECT_TRUE(entry->isPopoverPresented());
    moveThePointerAway(entry);
    EXPECT_FALSE(entry->isHovering());
    EXPECT_NE(groundColor(*entry), plain) << "as long as the popover is open";
    click(entry);
    EXPECT_FALSE(entry->isPopoverPresented()) << "a second click closes it";
    EXPECT_EQ(groundColor(*entry), plain);
}

TEST_F(DevicesSubmenuTest, AClickInTheEmptyMiddleCounts) {
    open(withDevices(test::numberedDevices(3)));
    auto* entry = find<DevicesSubmenu>();
    QTest::mouseClick(entry, Qt::LeftButton, {}, QPoint(180, entry->height() - 1));
    EXPECT_TRUE(entry->isPopoverPresented());
}

TEST_F(DevicesSubmenuTest, AClickElsewhereClosesThePopoverAndResetsTheFlag) {
    auto* entry = openList(test::numberedDevices(3));
    ASSERT_TRUE(entry->isPopoverPresented());
    QTest::mouseClick(deviceRow(*entry, 0), Qt::LeftButton);
    EXPECT_TRUE(entry->isPopoverPresented()) << "inside of it";
    click(button(u"Refresh"_s));
    EXPECT_FALSE(entry->isPopoverPresented());
    EXPECT_EQ(made, QStringList{u"refresh"_s});
}

TEST_F(DevicesSubmenuTest, AfterAClickElsewhereItIsHighlightedUnderThePointerOnly) {
    auto* entry = openList(test::numberedDevices(3));
    moveThePointerOnto(entry);
    click(button(u"Refresh"_s));
    EXPECT_FALSE(entry->isPopoverPresented());
    EXPECT_TRUE(entry->isHighlighted()) << "the pointer is still there";
    moveThePointerAway(entry);
    EXPECT_FALSE(entry->isHighlighted());
    click(entry);
    EXPECT_TRUE(entry->isHighlighted());
    click(button(u"Refresh"_s));
    EXPECT_FALSE(entry->isHighlighted());
}

TEST_F(DevicesSubmenuTest, TheOpenPopoverFollowsTheDevices) {
    auto* entry = openList(test::numberedDevices(2));
    Popover* popover = entry->popover();
    DeviceRow* second = deviceRow(*entry, 1);
    QList<DeviceInfo> devices = test::numberedDevices(4);
    devices.removeFirst();
    show(withDevices(devices));
    EXPECT_EQ(entry->popover(), popover);
    EXPECT_TRUE(popover->isVisible());
    EXPECT_EQ(entry->list()->rows().count(), 3);
    EXPECT_EQ(deviceRow(*entry, 0), second) << "rows are kept by their device";
    EXPECT_EQ(deviceRow(*entry, 2)->name().text(), "device-3"_L1);
}

TEST_F(DevicesSubmenuTest, ThePopoverGoesWithTheEntryAndTheFlagStartsFalse) {
    openList(test::numberedDevices(2));
    show(withDevices({}));
    EXPECT_EQ(panel->findChildren<Popover*>().size(), 0);
    show(withDevices(test::numberedDevices(2)));
    EXPECT_FALSE(find<DevicesSubmenu>()->isPopoverPresented());
    click(find<DevicesSubmenu>());
    panel->hide();
    settle();
    EXPECT_EQ(panel->findChildren<Popover*>().size(), 0) << "it goes with the panel too";
}

TEST_F(DevicesSubmenuTest, ThePopoverIsBesideTheRowAtItsLeadingEdge) {
    auto* entry = openList(test::numberedDevices(3));
    const QRect row(entry->mapToGlobal(QPoint(0, 0)), entry->size());
    EXPECT_EQ(entry->popover()->geometry().right() + 1, row.left());
    EXPECT_TRUE(entry->popover()->placement().isArrowRight);
    EXPECT_EQ(entry->popover()->y() + entry->popover()->placement().arrowY,
              row.top() + row.height() / 2);
}

TEST_F(DevicesSubmenuTest, OfAThousandDevicesOnlyVisibleOnesHaveRows) {
    QList<DeviceInfo> devices = test::numberedDevices(1000);
    devices[7].nodeKey = devices[8].nodeKey; // what lists are keyed by may be wrong
    auto* entry = openList(devices);
    const PopoverList& list = *entry->list();
    const auto rowsNow = [&] {
        return list.findChildren<DeviceRow*>().size();
    };
    const qsizetype most = list.scrollArea()->height() / deviceRow(*entry, 0)->height() + 2;
    EXPECT_LE(rowsNow(), most);
    auto* bar = list.scrollArea()->findChild<OverlayScrollBar*>();
    for (const int place : {bar->maximum(), bar->maximum() / 2, 30, 0}) {
        bar->setValue(place);
        settle();
        EXPECT_LE(rowsNow(), most);
        qsizetype shown = 0;
        for (qsizetype i = 0; i < devices.size(); ++i) {
            const DeviceRow* row = deviceRow(*entry, i);
            if (row == nullptr || row->visibleRegion().isEmpty())
                continue;
            ++shown;
            EXPECT_EQ(row->name().text(), devices[i].displayName());
        }
        EXPECT_GE(shown, most - 2) << "scrolled to " << place;
    }
}

TEST_F(DevicesSubmenuTest, AThousandDevicesAllHaveRowsForAssistiveTechnology) {
    auto* entry = openList(test::numberedDevices(1000));
    ASSERT_EQ(deviceRow(*entry, 999), nullptr);
    QAccessible::setActive(true); // a screen reader has started
    EXPECT_TRUE(test::waitUntil([&] { return deviceRow(*entry, 999) != nullptr; }));
    EXPECT_EQ(entry->list()->findChildren<DeviceRow*>().size(), 1000);
    QAccessible::setActive(false);
}

TEST_F(DevicesSubmenuTest, AThousandDevicesAreLookedThroughWithKeys) {
    auto* entry = openList(test::numberedDevices(1000));
    OverlayScrollArea* area = entry->list()->scrollArea();
    ASSERT_TRUE(test::waitUntil([&] { return area->hasFocus(); }));
    const auto isInSight = [&](qsizetype index) {
        const DeviceRow* row = deviceRow(*entry, index);
        return row != nullptr && area->viewport()->rect().contains(QRect(
                                     row->mapTo(area->viewport(), QPoint(0, 0)), row->size()));
    };
    EXPECT_TRUE(isInSight(0));
    QTest::keyClick(area, Qt::Key_PageDown);
    EXPECT_FALSE(isInSight(0));
    QTest::keyClick(area, Qt::Key_End);
    EXPECT_TRUE(isInSight(999));
    QTest::keyClick(area, Qt::Key_PageUp);
    EXPECT_FALSE(isInSight(999));
    QTest::keyClick(area, Qt::Key_Home);
    EXPECT_TRUE(isInSight(0));
}

} // namespace

} // namespace tarnwick
