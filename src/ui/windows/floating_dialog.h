// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace tarnwick {

/// A window of the program besides the panel: with a title bar, of a size that follows its
/// contents, above the windows of other programs. A dialog of no parent, not a tool window, which
/// macOS would hide with the program.
class FloatingDialog : public QDialog {
    Q_OBJECT

public:
    explicit FloatingDialog(const QString& title);

    /// Shows it in the middle of the screen that the user works on, in front and active.
    void present();
};

} // namespace tarnwick
