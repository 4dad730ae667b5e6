// SPDX-License-Identifier: MIT
#include "ui/panel/info_view.h"

#include "ui/controls/elided_label.h"
#include "ui/controls/selectable_label.h"

#include <QHBoxLayout>

namespace tarnwick {

namespace {

constexpr TextLook valueLook{TextStyle::Caption, TextWeight::Natural, TextDesign::Monospaced};

}

InfoView::InfoView(QWidget* parent) : QWidget(parent), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(16, 10, 16, 10);
    column_->setSpacing(6);
}

void InfoView::setContent(const PanelContent::Info& content) {
    for (qsizetype i = 0; i < content.rows.size(); ++i) {
        if (i == values_.size())
            makeRow(content.rows[i]);
        values_[i]->setContent(content.rows[i].value);
    }
}

void InfoView::makeRow(const PanelContent::InfoRow& row) {
    auto* label = new ElidedLabel({TextStyle::Caption}, ThemeColor::Secondary, this);
    label->setContent(row.label);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    StyledLabel* value = nullptr;
    if (row.isSelectable)
        value = new SelectableLabel(valueLook, this);
    else
        value = new ElidedLabel(valueLook, ThemeColor::Label, this);
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(label);
    line->addStretch(1);
    line->addWidget(value);
    column_->addLayout(line);
    values_.append(value);
}

} // namespace tarnwick
