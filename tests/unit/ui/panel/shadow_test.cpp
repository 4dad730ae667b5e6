// SPDX-License-Identifier: MIT
#include "panel_on_screen.h"
#include "ui/controls/popover.h"
#include "ui/panel/devices_submenu.h"

#include <QAccessible>
#include <QLabel>
#include <QWindow>

namespace tarnwick {

namespace {

/// A panel in a session that shows shadows.
class ShadedPanel : public MenuBarView {
public:
    using MenuBarView::MenuBarView;
    using MenuBarView::updateShadow;
    bool isShaded = true;

protected:
    bool canHaveShadow() const override { return isShaded; }
};

class ShadedPopover : public Popover {
public:
    using Popover::Popover;

protected:
    bool canHaveShadow() const override { return true; }
};

/// A window manager that gives new windows another place.
class NewWindowsMover : public QObject {
public:
    bool hasMoved = false;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            auto* window = static_cast<QWindow*>(watched);
            window->setPosition(window->position() + QPoint(-24, 20));
            hasMoved = true;
        }
        return false;
    }
};

class Shadow : public test::PanelOnScreen {
protected:
    Shadow() : shaded(daemon, {}) {}

    void openShaded() {
        test::publish(*daemon, test::connectedState());
        shaded.openAt({400, 40});
        settle();
    }

    static int alphaAt(QWidget& window, const QPoint& point) {
        QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        window.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image.pixelColor(point).alpha();
    }

    ShadedPanel shaded;
};

TEST_F(Shadow, IsLeftOutOfPlacement) {
    openShaded();
    EXPECT_EQ(shaded.visibleGeometry().topLeft(), QPoint(400, 40));
    EXPECT_EQ(shaded.visibleGeometry().size(), shaded.panelSize());
    EXPECT_EQ(shaded.geometry(), shaded.visibleGeometry().marginsAdded(WindowShadow::margins));
}

TEST_F(Shadow, IsNotKeptOnTheScreenByAWindowManagerThatMovesNewWindows) {
    openShaded();
    shaded.hide();
    NewWindowsMover windowManager;
    shaded.windowHandle()->installEventFilter(&windowManager);
    openShaded();
    EXPECT_TRUE(windowManager.hasMoved);
    EXPECT_EQ(shaded.visibleGeometry().topLeft(), QPoint(400, 40));
}

TEST_F(Shadow, RowsComeAndGoWithinAWindowThatGrowsUpwards) {
    test::publish(*daemon, test::connectedState());
    shaded.openAt(
        {400, shaded.screen()->availableGeometry().bottom() - shaded.panelSize().height()});
    settle();
    const QRect window = shaded.geometry();
    const QRect large = shaded.visibleGeometry();

    test::publish(*daemon, {});
    settle();
    EXPECT_EQ(shaded.geometry(), window);
    EXPECT_LT(shaded.visibleGeometry().height(), large.height());
    EXPECT_EQ(shaded.visibleGeometry().bottomLeft(), large.bottomLeft());

    shaded.isShaded = false;
    shaded.updateShadow();
    settle();
    EXPECT_EQ(shaded.geometry(), shaded.visibleGeometry());
    EXPECT_EQ(shaded.visibleGeometry().bottomLeft(), large.bottomLeft());
}

TEST_F(Shadow, IsLeftOutOfWhatAssistiveTechnologySees) {
    openShaded();
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&shaded);
    EXPECT_EQ(interface->rect(), shaded.visibleGeometry());
}

TEST_F(Shadow, FadesAwayWithinItsMargins) {
    openShaded();
    const QRect visible = shaded.visibleRect();
    const int middle = visible.center().y();
    EXPECT_EQ(alphaAt(shaded, visible.center()), 255);
    EXPECT_GT(alphaAt(shaded, {visible.left() - 1, middle}), 25);
    EXPECT_GT(alphaAt(shaded, {visible.left() - 1, middle}),
              alphaAt(shaded, {visible.left() - 10, middle}));
    EXPECT_GT(alphaAt(shaded, {visible.center().x(), visible.bottom() + 1}),
              alphaAt(shaded, {visible.center().x(), visible.top() - 1}));
    for (const QPoint& edge : {QPoint(0, middle), QPoint(visible.center().x(), 0),
                               shaded.rect().bottomRight(), QPoint(shaded.width() - 1, middle)})
        EXPECT_LE(alphaAt(shaded, edge), 1);
}

TEST_F(Shadow, IsHeldOnlyWhileTheWindowIsVisible) {
    openShaded();
    alphaAt(shaded, {});
    EXPECT_TRUE(shaded.holdsShadow());
    shaded.hide();
    EXPECT_FALSE(shaded.holdsShadow());
}

TEST_F(Shadow, ComesAndGoesAroundAPanelThatStays) {
    openShaded();
    const QRect visible = shaded.visibleGeometry();
    shaded.isShaded = false;
    shaded.updateShadow();
    settle();
    EXPECT_EQ(shaded.geometry(), visible);
    EXPECT_EQ(shaded.width(), MenuBarView::panelWidth);
    shaded.isShaded = true;
    shaded.updateShadow();
    settle();
    EXPECT_EQ(shaded.visibleGeometry(), visible);
}

TEST_F(Shadow, IsNotAroundAnOrdinaryWindow) {
    test::publish(*daemon, test::connectedState());
    shaded.openAsWindowAt({400, 40});
    settle();
    EXPECT_TRUE(shaded.shadowMargins().isNull());
    EXPECT_EQ(shaded.width(), MenuBarView::panelWidth);
}

TEST_F(Shadow, OfAPopoverMakesNoSystemWindowsOfThePanelsControls) {
    openShaded();
    DaemonState state = test::connectedState();
    state.devices.resize(1);
    test::publish(*daemon, state);
    settle();
    auto* row = shaded.findChild<DevicesSubmenu*>();
    ASSERT_NE(row, nullptr);
    ASSERT_NE(row->findChild<QWidget*>(), nullptr);
    ShadedPopover popover(row, new QLabel(QStringLiteral("Text")));
    popover.present();
    settle();
    ASSERT_TRUE(popover.isVisible());
    for (const QWidget* widget : shaded.findChildren<QWidget*>())
        EXPECT_TRUE(widget->isWindow() || widget->internalWinId() == 0);
    popover.dismiss();
}

TEST_F(Shadow, OfAPopoverMovesItsContentAside) {
    openShaded();
    auto* content = new QLabel(QStringLiteral("Text"));
    content->setFixedSize(260, 120);
    ShadedPopover popover(shaded.findChild<MenuButton*>(), content);
    popover.present();
    settle();
    EXPECT_EQ(popover.visibleGeometry(), popover.placement().window);
    EXPECT_EQ(popover.visibleGeometry().right() + 1, shaded.visibleGeometry().left());
    EXPECT_EQ(content->pos(), popover.visibleRect().topLeft());
    EXPECT_GT(alphaAt(popover, {popover.visibleRect().left() - 1, popover.rect().center().y()}),
              25);
    popover.dismiss();
}

} // namespace

} // namespace tarnwick
