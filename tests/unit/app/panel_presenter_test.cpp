// SPDX-License-Identifier: MIT
#include "app/panel_presenter.h"
#include "support/controller_world.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

class PanelPresenterTest : public testing::Test {
protected:
    /// As a click elsewhere does it: the panel loses the focus and closes.
    void loseFocus() {
        Q_EMIT panel_->dismissedByDeactivation();
        panel_->hide();
    }

    const IconPlace icon_{QRect(400, 0, 24, 24)};
    test::ControllerWorld world_;
    std::shared_ptr<DaemonManager> daemon_ = world_.create();
    int made_ = 0;
    MenuBarView* panel_ = nullptr;
    PanelPresenter presenter_{[this] {
        ++made_;
        auto panel = std::make_unique<MenuBarView>(daemon_, PerformCommand());
        panel_ = panel.get();
        return panel;
    }};
};

} // namespace

TEST_F(PanelPresenterTest, MakesThePanelOnTheFirstClickAndKeepsIt) {
    EXPECT_EQ(made_, 0);
    for (int i = 0; i < 6; ++i)
        presenter_.toggle(icon_);
    EXPECT_EQ(made_, 1);
}

TEST_F(PanelPresenterTest, AClickOpensAndASecondCloses) {
    presenter_.toggle(icon_);
    EXPECT_TRUE(presenter_.isOpen());
    EXPECT_GE(panel_->y(), icon_.rect->bottom() + 1);
    presenter_.toggle(icon_);
    EXPECT_FALSE(presenter_.isOpen());
}

TEST_F(PanelPresenterTest, TheClickThatTookTheFocusDoesNotOpenItAgain) {
    presenter_.toggle(icon_);
    loseFocus();
    presenter_.toggle(icon_);
    EXPECT_FALSE(presenter_.isOpen());
    presenter_.toggle(icon_);
    EXPECT_TRUE(presenter_.isOpen());
}

TEST_F(PanelPresenterTest, AClickRightAfterAnyOtherWayOfClosingOpensIt) {
    presenter_.toggle(icon_);
    QObject::connect(panel_, &MenuBarView::closed, panel_,
                     [this] { Q_EMIT panel_->dismissedByDeactivation(); });
    panel_->hide();
    presenter_.toggle(icon_);
    EXPECT_TRUE(presenter_.isOpen());
}

TEST_F(PanelPresenterTest, OpeningAnOpenPanelLeavesItOpen) {
    presenter_.open(icon_);
    presenter_.open(icon_);
    EXPECT_TRUE(presenter_.isOpen());
}

TEST_F(PanelPresenterTest, WithoutAnIconItIsAnOrdinaryWindowThatStays) {
    presenter_.openAsWindow();
    EXPECT_TRUE(presenter_.isOpen());
    EXPECT_FALSE(panel_->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(panel_->windowTitle(), QStringLiteral("Tarnwick Network"));
    presenter_.toggle(icon_);
    presenter_.toggle(icon_);
    EXPECT_TRUE(panel_->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(PanelPresenterTest, AnIconOffEveryScreenStillGivesAPlaceOnOne) {
    presenter_.open({QRect(90'000, 90'000, 24, 24)});
    EXPECT_TRUE(QGuiApplication::primaryScreen()->geometry().contains(panel_->pos()));
}

} // namespace tarnwick
