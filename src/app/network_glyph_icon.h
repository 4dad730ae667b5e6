// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tarnwick {

/// The hub and its six satellites in light grey with a dark outline: legible on dark and on light
/// panels without being tinted, and sharp in every size.
QIcon networkGlyphIcon();

} // namespace tarnwick
