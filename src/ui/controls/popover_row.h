// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/popover.h"
#include "ui/controls/popover_list.h"
#include "ui/controls/row_button.h"

namespace tarnwick {

/// A row that opens a popover beside the panel: a click toggles it, hovering only highlights.
class PopoverRow : public RowButton {
    Q_OBJECT

public:
    explicit PopoverRow(QWidget* parent);

    bool isPopoverPresented() const { return popover_ != nullptr; }

    void setPopoverPresented(bool presented);

    bool isHighlighted() const override { return isHovering() || isPopoverPresented(); }

    /// Null while it is closed.
    Popover* popover() const { return popover_; }

    /// What the popover holds, null while it is closed.
    PopoverList* list() const { return list_; }

protected:
    void hideEvent(QHideEvent* event) override;

    /// Makes the popover's empty list.
    virtual PopoverList* makeList() = 0;
    /// Brings an open popover up to date.
    virtual void updateList(PopoverList& list) = 0;

    /// To be called when what the popover shows has changed.
    void contentChanged();

private:
    void open();
    void close();

    Popover* popover_ = nullptr;
    PopoverList* list_ = nullptr;
};

} // namespace tarnwick
