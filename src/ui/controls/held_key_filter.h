// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace tarnwick {

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

} // namespace tarnwick
