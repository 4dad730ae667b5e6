// SPDX-License-Identifier: MIT
#include "panel_on_screen.h"
#include "ui/controls/content_column.h"
#include "ui/panel/menu_bar_view.h"
#include "ui/panel/panel_sections.h"

#include <QBackingStore>
#include <QClipboard>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::connectedState;
using test::profile;
using test::stoppedState;

class MenuBarViewTest : public test::PanelOnScreen {
protected:
    static DaemonState full() {
        DaemonState state = connectedState();
        state.devices = test::numberedDevices(3);
        state.profiles = {profile(u"a"_s, true), profile(u"b"_s)};
        return state;
    }
};

TEST_F(MenuBarViewTest, IsThreeHundredWideAndItsSectionsFillIt) {
    open(full());
    EXPECT_EQ(panel->width(), 300);
    for (QWidget* section :
         {static_cast<QWidget*>(find<HeaderView>()), static_cast<QWidget*>(find<InfoView>()),
          static_cast<QWidget*>(find<DevicesSubmenu>()),
          static_cast<QWidget*>(button(u"Disconnect"_s)), static_cast<QWidget*>(find<Divider>())}) {
        ASSERT_NE(section, nullptr);
        EXPECT_EQ(placeIn(*section, *panel).left(), 0);
        EXPECT_EQ(section->width(), 300);
    }
}

TEST_F(MenuBarViewTest, PaddingsAndSpacingsAreThoseOfTheGrid) {
    open(full());
    const HeaderView& header = *find<HeaderView>();
    const int symbolMiddle = placeIn(header.symbol(), *panel).center().x();
    EXPECT_NEAR(symbolMiddle, 16 + 8, 1) << "in the middle of the rows' column of symbols";
    EXPECT_EQ(placeIn(header.status(), *panel).left(), 16 + 16 + 8);
    const InfoView& info = *find<InfoView>();
    EXPECT_EQ(placeIn(info.value(0), info).top(), 10);
    EXPECT_EQ(placeIn(info.value(0), *panel).right(), 300 - 16 - 1);
    EXPECT_EQ(info.value(1).geometry().top() - info.value(0).geometry().bottom() - 1, 6);
    const int rowHeight = button(u"Refresh"_s)->height();
    EXPECT_EQ(button(u"Website"_s)->y() - button(u"Check for Updates..."_s)->y(), rowHeight + 2);
    EXPECT_GE(rowHeight, 6 + 16 + 6);
}

TEST_F(MenuBarViewTest, DevicesEntryComesWithOneMoreDivider) {
    const auto visibleDividers = [this] {
        qsizetype count = 0;
        for (const auto* divider : panel->findChildren<Divider*>())
            count += divider->isVisibleTo(&*panel) ? 1 : 0;
        return count;
    };
    DaemonState state = full();
    state.devices.clear();
    open(state);
    EXPECT_EQ(find<DevicesSubmenu>(), nullptr);
    EXPECT_EQ(visibleDividers(), 3); // below header and addresses, and among the actions
    show(full());
    EXPECT_NE(find<DevicesSubmenu>(), nullptr);
    EXPECT_EQ(visibleDividers(), 4);
}

TEST_F(MenuBarViewTest, AnEmptyErrorShowsAnEmptyLineAndNoErrorNone) {
    open(stoppedState());
    EXPECT_EQ(find<ErrorView>(), nullptr);
    const int height = panel->height();
    DaemonState state = stoppedState();
    state.errorMessage = u""_s;
    show(state);
    ASSERT_NE(find<ErrorView>(), nullptr);
    EXPECT_GT(panel->height(), height + 16);
    show(stoppedState());
    EXPECT_EQ(find<ErrorView>(), nullptr);
    EXPECT_EQ(panel->height(), height);
}

TEST_F(MenuBarViewTest, TheAddressCanBeSelectedAndCopiedWithTheMouse) {
    open(full());
    auto* address = const_cast<StyledLabel*>(&find<InfoView>()->value(0));
    QTest::mousePress(address, Qt::LeftButton, {}, QPoint(0, address->height() / 2));
    QTest::mouseMove(address, QPoint(address->width() - 1, address->height() / 2));
    QTest::mouseRelease(address, Qt::LeftButton, {},
                        QPoint(address->width() - 1, address->height() / 2));
    EXPECT_EQ(address->selectedText(), "100.64.0.1"_L1);
    QTest::keySequence(address, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "100.64.0.1"_L1);
}

TEST_F(MenuBarViewTest, TheAddressCanBeSelectedAndCopiedWithTheKeyboard) {
    open(full());
    QApplication::clipboard()->clear();
    QTest::keyClick(&*panel, Qt::Key_Tab);
    QWidget* focused = panel->focusWidget();
    ASSERT_EQ(focused, &find<InfoView>()->value(0)) << "the first control of the panel";
    QTest::keySequence(focused, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), "100.64.0.1"_L1);
}

TEST_F(MenuBarViewTest, TheHostNameCannotBeSelected) {
    open(full());
    auto* hostname = const_cast<StyledLabel*>(&find<InfoView>()->value(1));
    QTest::mouseDClick(hostname, Qt::LeftButton);
    EXPECT_FALSE(hostname->hasSelectedText());
    EXPECT_FALSE(hostname->textInteractionFlags() & Qt::TextSelectableByMouse);
    EXPECT_EQ(hostname->focusPolicy(), Qt::NoFocus);
}

TEST_F(MenuBarViewTest, ASelectionSurvivesARefresh) {
    open(full());
    auto* address = const_cast<StyledLabel*>(&find<InfoView>()->value(0));
    address->setFocus(Qt::MouseFocusReason);
    address->setSelection(0, 3);
    DaemonState state = full();
    state.hostname = u"renamed"_s;
    show(state);
    EXPECT_EQ(address->selectedText(), "100"_L1);
}

TEST_F(MenuBarViewTest, AnAddressThatNobodySelectsHasNoTextDocument) {
    open(full());
    auto* address = const_cast<StyledLabel*>(&find<InfoView>()->value(0));
    DaemonState state = full();
    state.ipAddress = u"100.64.0.99"_s;
    show(state);
    EXPECT_TRUE(address->children().isEmpty())
        << address->children().first()->metaObject()->className();
    EXPECT_EQ(address->text(), "100.64.0.99"_L1);
    EXPECT_EQ(address->focusPolicy(), Qt::StrongFocus);
}

TEST_F(MenuBarViewTest, TheAddressLooksTheSameOnceItHasBeenClicked) {
    open(full());
    auto* address = const_cast<StyledLabel*>(&find<InfoView>()->value(0));
    const QImage before = address->grab().toImage();
    click(address);
    ASSERT_FALSE(address->children().isEmpty());
    panel->setFocus(); // no text cursor
    EXPECT_EQ(address->grab().toImage(), before);
}

TEST_F(MenuBarViewTest, AClosedPanelHoldsNoPictureAndHasItAgainWhenOpen) {
    open(full());
    const QImage before = panel->grab().toImage();
    ASSERT_EQ(panel->backingStore()->size(), panel->size());
    panel->hide();
    EXPECT_EQ(panel->backingStore()->size(), QSize(1, 1));
    settle();
    open(full());
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(panel->backingStore()->size(), panel->size());
    EXPECT_EQ(panel->grab().toImage(), before);
}

TEST_F(MenuBarViewTest, EveryButtonMakesItsCall) {
    open(full());
    for (const auto& title : {u"Disconnect"_s, u"Refresh"_s, u"Check for Updates..."_s,
                              u"Website"_s, u"Quit Tarnwick Network"_s})
        click(button(title));
    show(stoppedState());
    click(button(u"Use Auth Key..."_s));
    EXPECT_EQ(made, (QStringList{u"disconnect"_s, u"refresh"_s, u"updates"_s, u"website"_s,
                                 u"quit"_s, u"key"_s}));
}

TEST_F(MenuBarViewTest, AHundredRefreshesWithEqualContentRenderNothing) {
    open(full());
    const int before = panel->renderCount();
    for (int i = 0; i < 100; ++i)
        show(full());
    EXPECT_EQ(panel->renderCount(), before);
}

TEST_F(MenuBarViewTest, ManyChangesInOneTurnRenderOnce) {
    open(stoppedState());
    const int before = panel->renderCount();
    for (int i = 0; i < 10; ++i)
        test::publishError(*daemon, QString::number(i));
    test::publish(*daemon, full());
    settle();
    EXPECT_EQ(panel->renderCount(), before + 1);
}

TEST_F(MenuBarViewTest, RendersNothingWhileHiddenAndIsUpToDateWhenShown) {
    open(stoppedState());
    panel->hide();
    const int before = panel->renderCount();
    show(full());
    show(stoppedState());
    show(full());
    EXPECT_EQ(panel->renderCount(), before);
    panel->openAt({400, 40}); // no turn of the event loop in between
    EXPECT_EQ(panel->renderCount(), before + 1);
    EXPECT_NE(button(u"Disconnect"_s), nullptr);
}

TEST_F(MenuBarViewTest, RowsLiveOnAcrossRenders) {
    open(full());
    auto* refreshRow = button(u"Refresh"_s);
    auto* devices = find<DevicesSubmenu>();
    DaemonState state = full();
    state.errorMessage = u"error: something"_s;
    state.devices = test::numberedDevices(5);
    show(state);
    EXPECT_EQ(button(u"Refresh"_s), refreshRow);
    EXPECT_EQ(find<DevicesSubmenu>(), devices);
}

TEST_F(MenuBarViewTest, EscapeClosesThePopoverAndThenThePanel) {
    open(full());
    auto* devices = find<DevicesSubmenu>();
    click(devices);
    ASSERT_TRUE(devices->isPopoverPresented());
    QTest::keyClick(&*panel, Qt::Key_Escape);
    EXPECT_FALSE(devices->isPopoverPresented());
    EXPECT_TRUE(panel->isVisible());
    QTest::keyClick(&*panel, Qt::Key_Escape);
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(MenuBarViewTest, ClosesWhenAnotherWindowBecomesActiveAndSaysSoFirst) {
    open(full());
    QStringList signalled;
    QObject::connect(&*panel, &MenuBarView::dismissedByDeactivation, &*panel,
                     [&] { signalled += u"dismissed"_s; });
    QObject::connect(&*panel, &MenuBarView::closed, &*panel, [&] { signalled += u"closed"_s; });
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(test::waitUntil([&] { return !panel->isVisible(); }));
    EXPECT_EQ(signalled, (QStringList{u"dismissed"_s, u"closed"_s}));
}

// Opened again right after it was closed: the window system reports late that it had lost the
// focus.
TEST_F(MenuBarViewTest, StaysWhenTheFocusGoesBeforeItHadIt) {
    panel->setAttribute(Qt::WA_DontShowOnScreen);
    panel->setWindowFlag(Qt::WindowDoesNotAcceptFocus); // as long as it takes to get it
    open(full());
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    Q_EMIT qGuiApp->focusWindowChanged(nullptr);
    test::runEventLoopFor(std::chrono::milliseconds(50));
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(MenuBarViewTest, StaysWhenItsOwnPopoverBecomesActive) {
    open(full());
    auto* devices = find<DevicesSubmenu>();
    click(devices);
    devices->popover()->activateWindow();
    ASSERT_TRUE(test::waitUntil([&] { return devices->popover()->isActiveWindow(); }));
    test::runEventLoopFor(std::chrono::milliseconds(50));
    EXPECT_TRUE(panel->isVisible());
    EXPECT_TRUE(devices->isPopoverPresented());
}

TEST_F(MenuBarViewTest, ContentsHigherThanTheScreenScroll) {
    DaemonState state = full();
    state.errorMessage = QString(5000, u'x');
    panel->setMaximumPanelHeight(400);
    open(state);
    EXPECT_EQ(panel->height(), 400);
    auto* area = find<OverlayScrollArea>();
    auto* bar = area->findChild<OverlayScrollBar*>();
    EXPECT_TRUE(bar->isVisible());
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(find<HeaderView>()->width(), 300) << "the bar takes no room";
    bar->setValue(bar->maximum());
    const QRect quit = placeIn(*button(u"Quit Tarnwick Network"_s), *panel);
    EXPECT_LE(quit.bottom(), 400);
}

TEST_F(MenuBarViewTest, GrowsUpwardsAtTheBottomOfTheScreen) {
    const QRect screen = panel->screen()->availableGeometry();
    test::publish(*daemon, stoppedState());
    panel->openAt({100, screen.bottom() + 1 - panel->panelSize().height()});
    settle();
    show(full());
    EXPECT_EQ(panel->geometry().bottom(), screen.bottom());
}

TEST_F(MenuBarViewTest, AnUnbrokenErrorWrapsInsideOfThePaddings) {
    DaemonState state = stoppedState();
    state.errorMessage = u"short"_s;
    open(state);
    const int oneLine = find<ErrorView>()->text().height();
    state.errorMessage = QString(300, u'x');
    show(state);
    const WrappedLabel& text = find<ErrorView>()->text();
    EXPECT_EQ(placeIn(text, *panel).left(), 16);
    EXPECT_EQ(text.width(), 300 - 32);
    EXPECT_GE(text.height(), 4 * oneLine);
}

} // namespace

} // namespace tarnwick
