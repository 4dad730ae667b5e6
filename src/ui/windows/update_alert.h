// SPDX-License-Identifier: MIT
#pragma once

#include "update/update_dialog.h"

#include <QDialog>

#include <functional>

namespace tarnwick {

/// The update dialog on the screen: in front of every other window of the program, and the only
/// one that takes input until it is answered. Deletes itself with its answer.
class UpdateAlert : public QDialog {
    Q_OBJECT

public:
    using OpenPage = std::function<void(const QUrl&)>;

    /// `openPage` is called once at most, when the dialog has gone, with the page that the pressed
    /// button opens.
    UpdateAlert(const UpdateDialog& content, OpenPage openPage, QWidget* parent = nullptr);

    /// Shows it in the middle of the screen. Does not wait: `finished` tells of the answer.
    void present();

private:
    QWidget* makeTexts(const UpdateDialog& content);
    QWidget* makeButtons(const QList<UpdateDialogButton>& buttons);

    OpenPage openPage_;
};

} // namespace tarnwick
