// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

namespace tarnwick {

/// The colours of texts and symbols, by meaning.
enum class ThemeColor { Label, Secondary, Green, Orange, Red };

/// Whether the palette is one of light texts on a dark ground.
bool isDark(const QPalette& palette);

/// The ground of panel, popovers and windows.
QColor backgroundColor(const QPalette& palette);

/// The named colour in that palette: legible as text (4.5 : 1 or more) on the ground and on a
/// highlighted row, whatever palette the user has chosen.
QColor themeColor(ThemeColor color, const QPalette& palette);

/// Laid over the ground of a row under the pointer, or whose popover is open.
QColor highlightColor(const QPalette& palette);

QColor dividerColor(const QPalette& palette);

/// The edge of panel and popovers.
QColor borderColor(const QPalette& palette);

/// The ring around a control that has the keyboard's focus: 3 : 1 or more on the ground.
QColor focusColor(const QPalette& palette);

/// The dot of a device that is offline.
QColor offlineDotColor();

/// Contrast of two opaque colours as WCAG defines it, 1 to 21.
double contrastRatio(const QColor& one, const QColor& other);

/// What the eye sees where a translucent colour covers an opaque one.
QColor blended(const QColor& over, const QColor& ground);

} // namespace tarnwick
