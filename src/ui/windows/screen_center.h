// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace tarnwick {

/// Moves a window that is not shown yet to the middle of the screen that the user works on.
void centerOnScreen(QWidget& window);

} // namespace tarnwick
