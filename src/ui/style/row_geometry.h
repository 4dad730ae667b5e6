// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/text_style.h"

#include <QRect>
#include <QString>

class QPainter;
class QWidget;

namespace tarnwick {

/// The grid of the panel's rows: a padding, the column of symbols, a gap, the texts' common left
/// edge, and at the end the chevron of rows that open a popover. In a left-to-right layout.
struct RowGeometry {
    static constexpr int horizontalPadding = 16;
    static constexpr int gap = 8;

    TextLook look;
    int verticalPadding = 6;

    int rowHeight() const;
    QRect symbolRect(const QRect& row) const;
    QRect textRect(const QRect& row) const;              ///< Up to the padding.
    QRect textRectBeforeChevron(const QRect& row) const; ///< Up to the chevron.
    QRect chevronRect(const QRect& row) const;

    /// Paints the row's symbol and its title into `title`, mirrored where the widget is.
    void paintSymbolAndTitle(QPainter& painter, const QWidget& widget, const QString& symbol,
                             const QString& title, const QRect& titleRect) const;
    void paintChevron(QPainter& painter, const QWidget& widget) const;
};

} // namespace tarnwick
