// SPDX-License-Identifier: MIT
#include "comparison.h"
#include "panel_pictures.h"
#include "references.h"
#include "support/controller_world.h"
#include "support/publishing.h"
#include "ui/controls/content_column.h"
#include "ui/panel/actions_view.h"
#include "ui/panel/devices_submenu.h"
#include "ui/panel/panel_sections.h"
#include "ui/style/appearance_style.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

namespace tarnwick::pictures {

namespace {

using namespace Qt::StringLiterals;

/// A panel with its devices, and what the comparison finds of a change.
class ComparisonTest : public testing::TestWithParam<Appearance::Scheme> {
protected:
    ComparisonTest() {
        style.apply({.scheme = GetParam()});
        const QList<Scene> scenes = allScenes();
        scene = *std::ranges::find(scenes, u"connected-devices"_s, &Scene::name);
        scene.state.errorMessage = u"error: the daemon is not running"_s;
        test::publish(*daemon, scene.state);
        popover = open(panel, scene);
    }

    void TearDown() override { style.apply({}); }

    QImage picture() { return pictureOf(panel, popover); }

    /// Where the picture differs after the change, which must be within that widget alone.
    void expectFoundIn(const QWidget* changed, const std::function<void()>& change) {
        const QImage before = cellsOf(picture());
        const QPoint corner = panel.geometry().united(popover->geometry()).topLeft() -
                              QPoint(pictureMargin, pictureMargin);
        const QRect place(changed->mapToGlobal(QPoint()) - corner, changed->size());
        change();
        const QList<Difference> found = differences(cellsOf(picture()), before);
        ASSERT_FALSE(found.isEmpty());
        const QMargins cell(cellSide, cellSide, cellSide, cellSide); // only touched by the change
        for (const Difference& difference : found)
            EXPECT_TRUE(place.marginsAdded(cell).contains(difference.area));
    }

    void publish(const DaemonState& state) {
        test::publish(*daemon, state);
        settle(*popover);
    }

    template <typename Widget>
    Widget* find() const {
        return panel.findChild<Widget*>();
    }

    AppearanceStyle style;
    test::ControllerWorld world;
    std::shared_ptr<DaemonManager> daemon = world.createRefreshed();
    MenuBarView panel{daemon, {}};
    Scene scene;
    Popover* popover = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Light, ComparisonTest, testing::Values(Appearance::Scheme::Light));
INSTANTIATE_TEST_SUITE_P(Dark, ComparisonTest, testing::Values(Appearance::Scheme::Dark));

TEST_P(ComparisonTest, SamePanelLooksTheSame) {
    const QImage before = cellsOf(picture());
    MenuBarView another(daemon, {});
    Popover* anothersPopover = open(another, scene);
    EXPECT_TRUE(differences(cellsOf(pictureOf(another, anothersPopover)), before).isEmpty());
}

TEST_P(ComparisonTest, RowThatIsTwoPointsLowerIsFound) {
    auto* row = find<MenuButton>();
    expectFoundIn(row, [row] { row->move(row->pos() + QPoint(0, 2)); });
}

TEST_P(ComparisonTest, MissingIconIsFound) {
    auto* row = find<MenuButton>();
    PanelContent::Button content = row->content();
    content.symbol.clear();
    expectFoundIn(row, [&] { row->setContent(content); });
}

TEST_P(ComparisonTest, ColorOfATextIsFound) {
    auto* status = find<HeaderView>()->findChildren<ElidedLabel*>().last();
    expectFoundIn(status, [status] { status->setColor(ThemeColor::Orange); });
}

TEST_P(ComparisonTest, ColorOfADotIsFound) {
    auto* row = popover->findChild<DeviceRow*>();
    scene.state.devices.first().online = false;
    expectFoundIn(row, [this] { publish(scene.state); });
}

TEST_P(ComparisonTest, ChangedWordIsFound) {
    scene.state.errorMessage = u"error: the daemon is not started"_s;
    expectFoundIn(&find<ErrorView>()->text(), [this] { publish(scene.state); });
}

TEST_P(ComparisonTest, MissingDividerIsFound) {
    for (auto* divider : panel.findChildren<Divider*>())
        expectFoundIn(divider, [divider] { divider->move(-divider->width(), 0); });
}

TEST_P(ComparisonTest, LargerPictureIsFound) {
    const QImage before = cellsOf(picture());
    const QList<Difference> found =
        differences(before.copy(before.rect().adjusted(0, 0, 0, 1)), before);
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().area, QRect(0, 2 * before.height(), 2 * before.width(), 2));
}

TEST_P(ComparisonTest, ReferenceHoldsUntilTheNextIsAccepted) {
    const QTemporaryDir folder;
    const QTemporaryDir results;
    const QString ending = u"@1x.png"_s;
    References references(QDir(folder.path()), ending);
    EXPECT_EQ(references.compare(u"panel"_s, picture(), results.path()), u"has no reference"_s);
    ASSERT_TRUE(references.accept(u"panel"_s, picture()));
    EXPECT_EQ(references.compare(u"panel"_s, picture(), results.path()), QString());

    scene.state.errorMessage = u"error"_s;
    publish(scene.state);
    const QString difference = references.compare(u"panel"_s, picture(), results.path());
    EXPECT_TRUE(difference.startsWith("differs at ("_L1)) << qPrintable(difference);
    EXPECT_EQ(QDir(results.path()).entryList(QDir::Files, QDir::Name),
              QStringList({u"panel-difference@1x.png"_s, u"panel-drawn@1x.png"_s,
                           u"panel-reference@1x.png"_s}));
    ASSERT_TRUE(references.accept(u"panel"_s, picture()));
    EXPECT_EQ(references.compare(u"panel"_s, picture(), results.path()), QString());

    References later(QDir(folder.path()), ending);
    EXPECT_EQ(later.unused(), QStringList{u"panel@1x.png"_s});
    EXPECT_TRUE(later.removeUnused());
    EXPECT_TRUE(later.unused().isEmpty());
}

} // namespace

} // namespace tarnwick::pictures
