// SPDX-License-Identifier: MIT
#pragma once

#include "sample_state.h"
#include "support/controller_world.h"
#include "support/publishing.h"
#include "support/waiting.h"
#include "ui/panel/actions_view.h"
#include "ui/panel/devices_submenu.h"
#include "ui/panel/menu_bar_view.h"
#include "ui/panel/profile_picker_row.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace tarnwick::test {

/// An open panel on a controller whose state the test decides, and the commands that its controls
/// made.
class PanelOnScreen : public testing::Test {
protected:
    PanelOnScreen() : daemon(world.createRefreshed()) {
        panel.emplace(daemon, [this](const PanelCommand& command) { note(command); });
    }

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
    QStringList made; ///< The commands, in order.
    std::function<void()> whenMade = [] {
    };

private:
    void note(const PanelCommand& command) {
        static const QHash<PanelCommand::Kind, QString> names{
            {PanelCommand::Kind::SwitchProfile, QStringLiteral("switch ")},
            {PanelCommand::Kind::RemoveProfile, QStringLiteral("remove ")},
            {PanelCommand::Kind::Disconnect, QStringLiteral("disconnect")},
            {PanelCommand::Kind::ShowAuthKeyWindow, QStringLiteral("key")},
            {PanelCommand::Kind::Refresh, QStringLiteral("refresh")},
            {PanelCommand::Kind::CheckForUpdates, QStringLiteral("updates")},
            {PanelCommand::Kind::OpenWebsite, QStringLiteral("website")},
            {PanelCommand::Kind::Quit, QStringLiteral("quit")}};
        made += names.value(command.kind) + command.profileId;
        whenMade();
    }
};

} // namespace tarnwick::test
