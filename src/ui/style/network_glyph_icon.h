// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tarnwick {

/// The hub and its six satellites in light grey with a dark outline, legible on dark and on light
/// panels without tinting.
///
/// `themeName` is for status areas that prefer a themed icon, which they can tint; "" for none.
QIcon networkGlyphIcon(const QString& themeName);

} // namespace tarnwick
