// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// A name from outside as one harmless line: line breaks and control characters become blanks,
/// marks that reorder their surroundings go, and so does what no row could show.
QString singleLineText(const QString& text);

/// A message from outside as paragraphs: as singleLineText(), but keeps line breaks, and longer.
QString multiLineText(const QString& text);

/// Rich text that shows `text` as it stands, wrapped, for a tooltip: those guess the format.
QString plainTooltip(const QString& text);

} // namespace tarnwick
