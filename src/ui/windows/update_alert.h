// SPDX-License-Identifier: MIT
#pragma once

#include "ui/windows/floating_dialog.h"
#include "update/update_dialog.h"

#include <functional>

namespace tarnwick {

/// The update dialog on the screen: in front of every other window of the program, and the only
/// one that takes input until it is answered, which `finished` reports. Deletes itself then.
class UpdateAlert : public FloatingDialog {
    Q_OBJECT

public:
    using OpenPage = std::function<void(const QUrl&)>;

    /// `openPage` is called once at most, when the dialog has gone, with the page that the pressed
    /// button opens.
    UpdateAlert(const UpdateDialog& content, OpenPage openPage);

private:
    QWidget* makeTexts(const UpdateDialog& content);
    QWidget* makeButtons(const QList<UpdateDialogButton>& buttons);

    OpenPage openPage_;
};

} // namespace tarnwick
