// SPDX-License-Identifier: MIT
#include "ui/controls/popover_row.h"

#include "ui/controls/keyboard.h"

#include <utility>

namespace tarnwick {

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
