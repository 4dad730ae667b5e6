// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

namespace tarnwick {

/// Semantic colours of texts and symbols.
enum class ThemeColor { Label, Secondary, Green, Orange, Red };

/// Whether the palette has light text on a dark background.
bool isDark(const QPalette& palette);

/// The background of panel, popovers and windows.
QColor backgroundColor(const QPalette& palette);

/// Whether the palette has next to the highest contrast, as those of high-contrast themes have.
bool hasHighContrast(const QPalette& palette);

/// The colour for that palette, adjusted until it is legible as text on the background: 4.5 : 1 or
/// more, in high contrast 7 : 1. Label and Secondary also are on a highlighted row.
QColor themeColor(ThemeColor color, const QPalette& palette);

/// The same hue for dots and marks, which need less contrast than text and so are brighter: 3 : 1
/// or more, in high contrast 4.5 : 1.
QColor shapeColor(ThemeColor color, const QPalette& palette);

/// Drawn over the background of a row under the pointer, or whose popover is open.
QColor highlightColor(const QPalette& palette);

QColor dividerColor(const QPalette& palette);

/// The outline of panel, popovers, fields and buttons. As the divider 3 : 1 in high contrast.
QColor borderColor(const QPalette& palette);

/// The focus ring: as a shape.
QColor focusColor(const QPalette& palette);

/// The background of a prominent button in the accent colour, and its title.
struct ProminentColors {
    QColor background;
    QColor title;
};

/// White on the accent colour, darkened until the title is legible. A light accent keeps its shade
/// and gets a black title.
ProminentColors prominentColors(const QPalette& palette);

/// The dot of a device that is offline.
QColor offlineDotColor();

/// Contrast ratio of two opaque colours as WCAG defines it, 1 to 21.
double contrastRatio(const QColor& one, const QColor& other);

/// The opaque result of drawing a translucent colour over `background`.
QColor blended(const QColor& over, const QColor& background);

} // namespace tarnwick
