// SPDX-License-Identifier: MIT
#include "ui/panel/actions_view.h"

#include "ui/panel/profile_picker_row.h"
#include "ui/style/row_painting.h"

#include <QPainter>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr RowGeometry buttonGrid{.look = {TextStyle::Body}, .verticalPadding = 6};

} // namespace

MenuButton::MenuButton(PerformCommand perform, QWidget* parent)
    : RowButton(parent), perform_(std::move(perform)) {
    QObject::connect(this, &QAbstractButton::clicked, this, [this] { perform_(content_.command); });
}

void MenuButton::setContent(const PanelContent::Button& content) {
    if (content == content_)
        return;
    content_ = content;
    setAccessibleName(content_.title);
    updateGeometry();
    update();
}

QSize MenuButton::sizeHint() const {
    return {0, buttonGrid.rowHeight()};
}

void MenuButton::paintRow(QPainter& painter) {
    buttonGrid.paintSymbolAndTitle(painter, *this, content_.symbol, content_.title,
                                   buttonGrid.textRect(rect()));
}

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
