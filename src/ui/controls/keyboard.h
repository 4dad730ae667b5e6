// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QWidget>

class QFocusEvent;
class QKeyEvent;

namespace tarnwick {

/// Whether the keyboard moved the focus, which must be visible then.
bool isKeyboardReason(Qt::FocusReason reason);

/// Whether `control` marks its focus from this event on, given whether it did `before`: after the
/// keyboard moved it there, never after a click.
bool marksFocus(const QWidget& control, const QFocusEvent& event, bool before);

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

/// Drops repetitions of a held Return, Enter or Space that Qt takes for presses of their own: X
/// reports a repetition as a release and a press of the same time, and Qt only sees that if it
/// reads both at once. For as long as it lives, in all windows; text fields get their blanks.
class HeldKeyFilter : public QObject {
    Q_OBJECT

public:
    HeldKeyFilter();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    quint64 lastRelease_ = 0; ///< When the last key was released, in the window system's time.
};

/// The focus ring of a control that scrolls what is in it and so cannot paint one over that itself.
/// Shown while the control has the focus, if the keyboard moved it there.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    /// `distance` is the room between control and ring, in device-independent pixels; a negative
    /// one puts the ring inside. It belongs to the control.
    FocusRing(QWidget* control, int distance);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void review(const QFocusEvent& event);
    void place();

    QWidget* control_;
    int distance_;
    bool isMarked_ = false;
};

} // namespace tarnwick
