// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/text_style.h"

#include <QRect>
#include <QString>

class QPainter;
class QPalette;
class QWidget;

namespace tarnwick {

/// `size` device-independent pixels as the user wants texts, for what has to grow with them.
int scaled(int size);

/// How large a symbol is beside texts of that style.
int symbolSize(TextStyle style);

/// Width of the column in which rows have their symbols: the same for all of them.
int symbolColumnWidth();

/// Height of one line of text in that look.
int lineHeight(const TextLook& look);

/// Width that the line takes: rounded up, for one a fraction too narrow would elide it.
int textAdvance(const QFont& font, const QString& text);

/// Paints one line at the leading edge, vertically in the middle, elided where it does not fit.
/// Its own direction follows its letters, so a name reads right in any layout.
void paintLine(QPainter& painter, const QRect& rect, const QString& text, Qt::TextElideMode mode,
               Qt::LayoutDirection layoutDirection);

/// Paints the ground of a row that is highlighted.
void paintHighlight(QPainter& painter, const QRect& rect, const QPalette& palette);

/// Paints the ring of the control that has the keyboard's focus, just inside of `rect`.
void paintFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette);

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
