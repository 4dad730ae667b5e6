// SPDX-License-Identifier: MIT
#include "ui/controls/popover_list.h"

#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarnwick {

PopoverList::PopoverList(int maximumHeight, RowList::Provide provide, QWidget* parent)
    : QWidget(parent), maximumHeight_(maximumHeight),
      heading_(new ElidedLabel({TextStyle::Caption}, ThemeColor::Secondary, this)),
      scrollArea_(new OverlayScrollArea(this)), rows_(new RowList(std::move(provide), nullptr)) {
    constexpr int spacing = 2;
    constexpr int bottomPadding = 8;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, bottomPadding);
    column->setSpacing(spacing);
    auto* headingRow = new QVBoxLayout;
    headingRow->setContentsMargins(12, 8, 12, 0);
    headingRow->addWidget(heading_);
    column->addLayout(headingRow);
    column->addWidget(scrollArea_);
    scrollArea_->setContents(rows_);
    setFixedWidth(fixedWidth);
}

void PopoverList::setContent(const QString& heading, const QStringList& keys) {
    heading_->setContent(heading);
    setAccessibleName(heading_->text());
    scrollArea_->setAccessibleName(heading_->text()); // it accepts the focus where it can scroll
    rows_->setRows(keys);
    fitRows();
}

void PopoverList::fitRows() {
    scrollArea_->setFixedHeight(std::min(rows_->sizeHint().height(), maximumHeight_));
    updateGeometry();
}

QSize PopoverList::sizeHint() const {
    return {fixedWidth, QWidget::sizeHint().height()};
}

bool PopoverList::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest)
        fitRows(); // the rows' height follows the font
    return QWidget::event(event);
}

} // namespace tarnwick
