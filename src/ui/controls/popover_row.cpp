// SPDX-License-Identifier: MIT
#include "ui/controls/popover_row.h"

#include "ui/controls/keyboard.h"

#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tarnwick {

PopoverList::PopoverList(int maximumHeight, RowList::OutOfSight outOfSight,
                         RowList::Provide provide, QWidget* parent)
    : QWidget(parent), maximumHeight_(maximumHeight),
      heading_(new ElidedLabel({TextStyle::Caption}, ThemeColor::Secondary, this)),
      scrollArea_(new OverlayScrollArea(this)),
      rows_(new RowList(outOfSight, std::move(provide), nullptr)) {
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

PopoverRow::PopoverRow(QWidget* parent) : RowButton(parent) {
    QObject::connect(this, &QAbstractButton::clicked, this,
                     [this] { setPopoverPresented(!isPopoverPresented()); });
}

void PopoverRow::setPopoverPresented(bool presented) {
    if (presented == isPopoverPresented())
        return;
    if (presented)
        open();
    else
        close();
    update();
}

void PopoverRow::open() {
    list_ = makeList();
    updateList(*list_);
    popover_ = new Popover(this, list_);
    QObject::connect(popover_, &Popover::dismissedByUser, this,
                     [this] { setPopoverPresented(false); });
    popover_->present();
    // Opened with the keyboard, the first control gets the focus; else a list without any scrolls.
    if (showsFocusRing())
        moveFocus(popover_, 1);
    else if (list_->scrollArea()->focusPolicy() != Qt::NoFocus)
        list_->scrollArea()->setFocus(Qt::OtherFocusReason);
}

void PopoverRow::close() {
    list_ = nullptr;
    Popover* closing = std::exchange(popover_, nullptr);
    closing->dismiss();
    closing->deleteLater(); // one of its own controls may be on the stack
}

void PopoverRow::contentChanged() {
    updateGeometry();
    update();
    if (list_ != nullptr)
        updateList(*list_);
}

void PopoverRow::hideEvent(QHideEvent* event) {
    setPopoverPresented(false);
    RowButton::hideEvent(event);
}

} // namespace tarnwick
