// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tarnwick {

/// The hub and its six satellites in light grey with a dark outline: legible on dark and on light
/// panels without being tinted, and sharp in every size.
///
/// `themeName` is offered to status areas that take the icon of that name from their own theme and
/// tint it; "" when no theme has one.
QIcon networkGlyphIcon(const QString& themeName);

} // namespace tarnwick
