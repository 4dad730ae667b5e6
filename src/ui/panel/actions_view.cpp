// SPDX-License-Identifier: MIT
#include "ui/panel/actions_view.h"

#include "ui/controls/column_items.h"
#include "ui/controls/divider.h"
#include "ui/controls/reading_order.h"
#include "ui/panel/menu_button.h"
#include "ui/panel/profile_picker_row.h"

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int dividerPadding = 4;

QString keyOf(const PanelContent::Action& action) {
    if (const auto* picker = std::get_if<PanelContent::ProfilePicker>(&action))
        return u"picker/"_s + picker->key;
    if (const auto* button = std::get_if<PanelContent::Button>(&action))
        return u"button/"_s + QString::number(int(button->command.kind));
    return u"divider"_s;
}

} // namespace

ActionsView::ActionsView(PerformCommand perform, QWidget* parent)
    : QWidget(parent), perform_(std::move(perform)), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(0, 4, 0, 4);
    column_->setSpacing(2);
}

void ActionsView::setContent(const PanelContent::Actions& content) {
    QHash<QString, QWidget*> kept;
    QList<QWidget*> shown;
    takeAllItems(*column_);
    for (const PanelContent::Action& action : content.actions) {
        const QString key = keyOf(action);
        QWidget* row = rowFor(action, rows_.take(key));
        kept.insert(key, row);
        shown.append(row);
        if (std::holds_alternative<PanelContent::Divider>(action)) {
            auto* padded = new QVBoxLayout;
            padded->setContentsMargins(0, dividerPadding, 0, dividerPadding);
            padded->addWidget(row);
            column_->addLayout(padded);
        } else {
            column_->addWidget(row);
        }
        row->show(); // at once: a hidden one would not count for the height
    }
    for (QWidget* gone : std::as_const(rows_)) {
        gone->hide();
        gone->deleteLater();
    }
    rows_ = std::move(kept);
    setReadingOrder(shown);
}

QWidget* ActionsView::rowFor(const PanelContent::Action& action, QWidget* row) {
    if (const auto* content = std::get_if<PanelContent::ProfilePicker>(&action)) {
        auto* picker = static_cast<ProfilePickerRow*>(row);
        if (picker == nullptr)
            picker = new ProfilePickerRow(perform_, this);
        picker->setContent(*content);
        return picker;
    }
    if (const auto* content = std::get_if<PanelContent::Button>(&action)) {
        auto* button = static_cast<MenuButton*>(row);
        if (button == nullptr)
            button = new MenuButton(perform_, this);
        button->setContent(*content);
        return button;
    }
    return row != nullptr ? row : new Divider(this);
}

} // namespace tarnwick
