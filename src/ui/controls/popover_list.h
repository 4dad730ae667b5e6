// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/labels.h"
#include "ui/controls/overlay_scroll_area.h"
#include "ui/controls/row_list.h"

#include <QWidget>

namespace tarnwick {

/// The content of a popover: a heading, and rows that scroll below it.
class PopoverList : public QWidget {
    Q_OBJECT

public:
    static constexpr int fixedWidth = 260;

    /// `maximumHeight` is of the scrolled part, in device-independent pixels.
    PopoverList(int maximumHeight, RowList::Provide provide, QWidget* parent = nullptr);

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

} // namespace tarnwick
