// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/appearance.h"

#include <QPalette>

namespace tarnwick {

/// The roles that the appearance decides; the others are left to `own`, Qt's own palette.
QPalette paletteFor(const Appearance& appearance, const QPalette& own);

/// Gives the application the palette and the fonts of the desktop's appearance. Sets them whole
/// instead of adjusting Qt's own, which newer versions of Qt derive from the same settings.
class AppearanceStyle {
public:
    /// Main thread, with a QApplication. What the appearance leaves open is Qt's own again.
    void apply(const Appearance& appearance);

private:
    Appearance applied_;
};

} // namespace tarnwick
