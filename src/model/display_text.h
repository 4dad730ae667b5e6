// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// At most `longest` code units, never half a surrogate pair, and an ellipsis for what is cut.
QString cutText(const QString& text, qsizetype longest);

/// Whether the character ends a line, in any convention.
bool isLineBreak(QChar c);

/// Takes the line breaks out, and keeps the cursor behind the same text.
void dropLineBreaks(QString& text, int& cursor);

/// An external text as one harmless line: line breaks and control characters become blanks,
/// direction marks are dropped.
QString harmlessLine(const QString& text);

/// An external name as such a line, of which what is too long for any row is cut.
QString singleLineText(const QString& text);

/// An external message: as singleLineText(), but with line breaks, and longer.
QString multiLineText(const QString& text);

/// Rich text that shows `text` verbatim and wrapped, for tooltips, which would guess its format.
QString plainTooltip(const QString& text);

} // namespace tarnwick
