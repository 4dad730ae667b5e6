// SPDX-License-Identifier: MIT
#include "ui/panel/actions_view.h"

#include "ui/panel/menu_button.h"
#include "ui/panel/profile_picker_row.h"

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

ActionsView::ActionsView(PerformCommand perform, QWidget* parent)
    : ContentColumn({0, 4, 0, 4}, 2, parent), perform_(std::move(perform)) {}

void ActionsView::setContent(const PanelContent::Actions& content) {
    begin();
    for (const PanelContent::Action& action : content.actions)
        addAction(action);
    end();
}

void ActionsView::addAction(const PanelContent::Action& action) {
    constexpr int dividerPadding = 4;
    if (const auto* picker = std::get_if<PanelContent::ProfilePicker>(&action)) {
        add<ProfilePickerRow>(u"picker/"_s + picker->key, *picker, perform_);
    } else if (const auto* button = std::get_if<PanelContent::Button>(&action)) {
        const QString key = u"button/"_s + QString::number(int(button->command.kind));
        add<MenuButton>(key, *button, perform_);
    } else {
        addDivider(dividerPadding);
    }
}

} // namespace tarnwick
