// SPDX-License-Identifier: MIT
#include "ui/panel/panel_column.h"

#include "ui/controls/column_items.h"
#include "ui/controls/divider.h"
#include "ui/controls/reading_order.h"
#include "ui/panel/actions_view.h"
#include "ui/panel/devices_submenu.h"
#include "ui/panel/error_view.h"
#include "ui/panel/header_view.h"
#include "ui/panel/info_view.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

PanelColumn::PanelColumn(PerformCommand perform, QWidget* parent)
    : QWidget(parent), perform_(std::move(perform)), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(0);
}

void PanelColumn::setContent(const PanelContent& content) {
    removeUnused(content);
    takeAllItems(*column_);
    for (qsizetype i = 0; i < content.sections.size(); ++i) {
        if (i > 0)
            addDivider(i - 1);
        showSection(content.sections[i]);
    }
    for (qsizetype i = 0; i < dividers_.size(); ++i)
        dividers_[i]->setVisible(i < content.sections.size() - 1);
    QList<QWidget*> shown;
    for (int i = 0; i < column_->count(); ++i)
        shown.append(column_->itemAt(i)->widget());
    setReadingOrder(shown);
}

int PanelColumn::contentHeight(int width) const {
    column_->activate();
    return column_->hasHeightForWidth() ? column_->heightForWidth(width)
                                        : column_->sizeHint().height();
}

template <typename View, typename Content>
void PanelColumn::showView(QWidget*& view, const Content& content) {
    if (view == nullptr) {
        if constexpr (std::is_same_v<View, ActionsView>)
            view = new View(perform_, this);
        else
            view = new View(this);
    }
    static_cast<View*>(view)->setContent(content);
    column_->addWidget(view);
    view->show(); // at once: a hidden one would not count for the height
}

void PanelColumn::showSection(const PanelContent::Section& section) {
    QWidget*& view = views_[section.index()];
    if (const auto* header = std::get_if<PanelContent::Header>(&section))
        showView<HeaderView>(view, *header);
    else if (const auto* info = std::get_if<PanelContent::Info>(&section))
        showView<InfoView>(view, *info);
    else if (const auto* devices = std::get_if<PanelContent::Devices>(&section))
        showView<DevicesSubmenu>(view, *devices);
    else if (const auto* error = std::get_if<PanelContent::Error>(&section))
        showView<ErrorView>(view, *error);
    else if (const auto* actions = std::get_if<PanelContent::Actions>(&section))
        showView<ActionsView>(view, *actions);
}

void PanelColumn::addDivider(qsizetype number) {
    if (number == dividers_.size())
        dividers_.append(new Divider(this));
    column_->addWidget(dividers_[number]);
}

void PanelColumn::removeUnused(const PanelContent& content) {
    for (std::size_t kind = 0; kind < views_.size(); ++kind) {
        const bool isUsed =
            std::ranges::any_of(content.sections, [kind](const PanelContent::Section& section) {
                return section.index() == kind;
            });
        if (isUsed || views_[kind] == nullptr)
            continue;
        views_[kind]->hide();
        views_[kind]->deleteLater();
        views_[kind] = nullptr;
    }
}

} // namespace tarnwick
