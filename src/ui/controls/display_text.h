// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// Whether the character ends a line, in any convention.
bool isLineBreak(QChar c);

/// An external name as one harmless line: line breaks and control characters become blanks,
/// direction marks are dropped, and what is too long for any row is cut.
QString singleLineText(const QString& text);

/// An external message: as singleLineText(), but with line breaks, and longer.
QString multiLineText(const QString& text);

/// Rich text that shows `text` verbatim and wrapped, for tooltips, which would guess its format.
QString plainTooltip(const QString& text);

} // namespace tarnwick
