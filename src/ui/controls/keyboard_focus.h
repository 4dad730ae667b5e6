// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QKeyEvent;
class QWidget;

namespace tarnwick {

/// Whether the keyboard moved the focus, which must be visible then.
bool isKeyboardReason(Qt::FocusReason reason);

/// Whether this is a repetition of a held Return, Enter or Space. Controls ignore those: a press
/// calls once, and the press that opened a popover or a window presses nothing in it.
bool isRepeatedPress(const QKeyEvent& event);

/// +1 for an arrow key that moves forward (down, or in reading direction), -1 for one that moves
/// back, 0 for any other key.
int arrowDirection(const QKeyEvent& event, Qt::LayoutDirection layoutDirection);

/// Moves the focus to the next (+1) or previous (-1) control of the window in visual order.
/// False if the window has none.
bool moveFocus(QWidget* window, int direction);

/// Scrolls the scroll area around `widget`, if any, so that it is visible.
void scrollIntoView(QWidget* widget);

} // namespace tarnwick
