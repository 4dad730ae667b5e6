// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QKeyEvent;
class QWidget;

namespace tarnwick {

/// Whether the keyboard moved the focus, which must be visible then.
bool isKeyboardReason(Qt::FocusReason reason);

/// +1 for an arrow key that moves forward (down, or in reading direction), -1 for one that moves
/// back, 0 for any other key.
int arrowDirection(const QKeyEvent& event, Qt::LayoutDirection layoutDirection);

/// Moves the focus to the next (+1) or previous (-1) control of the window in visual order.
/// False if the window has none.
bool moveFocus(QWidget* window, int direction);

/// Scrolls the scroll area around `widget`, if any, so that it is visible.
void scrollIntoView(QWidget* widget);

} // namespace tarnwick
