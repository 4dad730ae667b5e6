// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace tarnwick {

/// A window with a title bar above all other windows. A dialog and not a Qt::Tool, which macOS
/// hides while the program is inactive.
class FloatingDialog : public QDialog {
    Q_OBJECT

public:
    explicit FloatingDialog(const QString& title);
    ~FloatingDialog() override;
    FloatingDialog(const FloatingDialog&) = delete;
    FloatingDialog& operator=(const FloatingDialog&) = delete;

    /// Shows and activates it in the middle of the screen that has the pointer.
    void present();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace tarnwick
