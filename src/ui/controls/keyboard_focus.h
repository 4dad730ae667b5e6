// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QKeyEvent;
class QWidget;

namespace tarnwick {

/// Whether the focus was moved with the keyboard, and so must be visible.
bool isKeyboardReason(Qt::FocusReason reason);

/// +1 for an arrow key that moves on (down, or along the line), -1 for one that moves back, 0 for
/// any other key.
int arrowDirection(const QKeyEvent& event, Qt::LayoutDirection layoutDirection);

/// Gives the focus to the next control of the window (+1) or the one before (-1), as the eye goes:
/// down, and along the line. False when the window has none.
bool moveFocus(QWidget* window, int direction);

/// Scrolls what `widget` lies in until it is visible.
void scrollIntoView(QWidget* widget);

} // namespace tarnwick
