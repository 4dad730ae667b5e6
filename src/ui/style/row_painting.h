// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/text_style.h"

#include <QString>

class QPainter;
class QPalette;
class QRect;

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

} // namespace tarnwick
