// SPDX-License-Identifier: MIT
#pragma once

#include "sample_state.h"
#include "support/controller_world.h"
#include "support/publishing.h"
#include "support/waiting.h"
#include "ui/panel/device_row.h"
#include "ui/panel/devices_submenu.h"
#include "ui/panel/menu_bar_view.h"
#include "ui/panel/menu_button.h"
#include "ui/panel/profile_picker_row.h"
#include "ui/panel/profile_row.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace tarnwick::test {

/// An open panel on a controller whose state the test decides, and the calls that it made.
class PanelOnScreen : public testing::Test {
protected:
    PanelOnScreen() : daemon(world.createRefreshed()) { panel.emplace(daemon, recordedCalls()); }

    ~PanelOnScreen() override { QApplication::setLayoutDirection(Qt::LeftToRight); }

    void open(const DaemonState& state) {
        publish(*daemon, state);
        panel->openAt({400, 40});
        settle();
    }

    void show(const DaemonState& state) {
        publish(*daemon, state);
        settle();
    }

    /// Lets everything that is queued happen.
    static void settle() {
        for (int turn = 0; turn < 5; ++turn) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
        }
    }

    template <typename Widget>
    Widget* find() const {
        for (auto* widget : panel->findChildren<Widget*>())
            if (widget->isVisibleTo(&*panel))
                return widget;
        return nullptr;
    }

    MenuButton* button(const QString& title) const {
        for (auto* candidate : panel->findChildren<MenuButton*>())
            if (candidate->content().title == title && candidate->isVisibleTo(&*panel))
                return candidate;
        return nullptr;
    }

    static void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

    static ProfileRow* line(const ProfilePickerRow& picker, qsizetype index) {
        return static_cast<ProfileRow*>(picker.list()->rows().row(index));
    }

    static DeviceRow* deviceRow(const DevicesSubmenu& entry, qsizetype index) {
        return static_cast<DeviceRow*>(entry.list()->rows().row(index));
    }

    static QRect placeIn(const QWidget& widget, const QWidget& ancestor) {
        return {widget.mapTo(&ancestor, QPoint(0, 0)), widget.size()};
    }

    ControllerWorld world;
    std::shared_ptr<DaemonManager> daemon;
    std::optional<MenuBarView> panel;
    QStringList made; ///< The calls, in order.

private:
    PanelCalls recordedCalls() {
        const auto note = [this](const char* what) {
            return [this, what] {
                made += QString::fromLatin1(what);
            };
        };
        return {[this](const QString& id) { made += QStringLiteral("switch ") + id; },
                [this](const QString& id) { made += QStringLiteral("remove ") + id; },
                note("disconnect"),
                note("key"),
                note("refresh"),
                note("updates"),
                note("website"),
                note("quit")};
    }
};

} // namespace tarnwick::test
