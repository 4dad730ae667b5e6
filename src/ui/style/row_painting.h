// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/text_style.h"

#include <QBrush>
#include <QRect>
#include <QString>

class QPainter;
class QPalette;
class QWidget;

namespace tarnwick {

/// `size` in device-independent pixels, multiplied by the user's text scale.
int scaled(int size);

/// Size of a symbol beside text of that style.
int symbolSize(TextStyle style);

/// Width of the column that all rows have for their symbol.
int symbolColumnWidth();

/// Height of text fields and of the buttons of forms.
int controlHeight();

/// Height of one line of text in that look.
int lineHeight(const TextLook& look);

/// Width of a line of text, rounded up so that it is not elided for a fraction of a pixel.
int textAdvance(const QFont& font, const QString& text);

// At a fractional scale the edges of widgets and lines lie between pixels, and would be painted
// blurred.

/// `rect` with each edge moved to the nearest edge of a pixel.
QRectF wholePixels(const QPainter& painter, const QRectF& rect);

/// The thickness of a line rounded to whole pixels, of which it is at least one.
double wholePixelLine(const QPainter& painter, double thickness);

/// Paints a rounded frame just inside `rect`, of lines that are whole pixels, over `filling`.
void paintFrame(QPainter& painter, const QRectF& rect, double radius, const QColor& line,
                double thickness, const QBrush& filling = Qt::NoBrush);

/// Paints one line at the leading edge, elided if it does not fit. Its own
/// direction follows its letters, so that a name reads correctly in any layout.
void paintLine(QPainter& painter, const QRect& rect, const QString& text, Qt::TextElideMode mode,
               Qt::LayoutDirection layoutDirection, Qt::Alignment vertical = Qt::AlignVCenter);

/// Paints the background of a highlighted row.
void paintHighlight(QPainter& painter, const QRect& rect, const QPalette& palette);

/// Paints the focus ring just inside `rect`.
void paintFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette);

/// The grid of the panel's rows, left to right: padding, symbol column, gap, text, and a chevron in
/// rows that open a popover.
struct RowGeometry {
    static constexpr int horizontalPadding = 16;
    static constexpr int gap = 8;

    TextLook look;
    int verticalPadding = 6;

    int rowHeight() const;
    QRect symbolRect(const QRect& row) const;
    QRect textRect(const QRect& row) const;              ///< As far as the padding.
    QRect textRectBeforeChevron(const QRect& row) const; ///< As far as the chevron.
    QRect chevronRect(const QRect& row) const;

    /// Paints the row's symbol, and its title into `titleRect`, mirrored if the layout is.
    void paintSymbolAndTitle(QPainter& painter, const QWidget& widget, const QString& symbol,
                             const QString& title, const QRect& titleRect) const;
    void paintChevron(QPainter& painter, const QWidget& widget) const;
};

} // namespace tarnwick
