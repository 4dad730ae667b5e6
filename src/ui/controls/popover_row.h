// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/labels.h"
#include "ui/controls/overlay_scroll_area.h"
#include "ui/controls/popover.h"
#include "ui/controls/row_button.h"
#include "ui/controls/row_list.h"

#include <QWidget>

namespace tarnwick {

/// The content of a popover: a heading, and rows that scroll below it.
class PopoverList : public QWidget {
    Q_OBJECT

public:
    static constexpr int fixedWidth = 260;

    /// `maximumHeight` is of the scrolled part, in device-independent pixels.
    PopoverList(int maximumHeight, RowList::OutOfSight outOfSight, RowList::Provide provide,
                QWidget* parent = nullptr);

    void setContent(const QString& heading, const QStringList& keys);

    QSize sizeHint() const override;

    const RowList& rows() const { return *rows_; }

    ElidedLabel* heading() const { return heading_; }

    OverlayScrollArea* scrollArea() const { return scrollArea_; }

protected:
    bool event(QEvent* event) override;

private:
    void fitRows();

    int maximumHeight_;
    ElidedLabel* heading_;
    OverlayScrollArea* scrollArea_;
    RowList* rows_;
};

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
