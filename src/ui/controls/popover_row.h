// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/popover.h"
#include "ui/controls/popover_list.h"
#include "ui/controls/row_button.h"

namespace tarnwick {

/// A row that toggles a popover when clicked; hovering only highlights it.
class PopoverRow : public RowButton {
    Q_OBJECT

public:
    explicit PopoverRow(QWidget* parent);

    bool isPopoverPresented() const { return popover_ != nullptr; }

    void setPopoverPresented(bool presented);

    bool isHighlighted() const override { return isHovering() || isPopoverPresented(); }

    /// Null while closed.
    Popover* popover() const { return popover_; }

    /// The popover's content, null while closed.
    PopoverList* list() const { return list_; }

protected:
    void hideEvent(QHideEvent* event) override;

    /// Makes the popover's empty list.
    virtual PopoverList* makeList() = 0;
    /// Updates the list of an open popover.
    virtual void updateList(PopoverList& list) = 0;

    /// Must be called when the row's or the popover's content has changed.
    void contentChanged();

private:
    void open();
    void close();

    Popover* popover_ = nullptr;
    PopoverList* list_ = nullptr;
};

} // namespace tarnwick
