// SPDX-License-Identifier: MIT
#pragma once

#include "ui/windows/floating_dialog.h"
#include "update/update_dialog.h"

#include <functional>

namespace tarnwick {

/// Shows the update dialog, application-modal but without blocking the caller: `finished` reports
/// the answer. Deletes itself when it is closed.
class UpdateAlert : public FloatingDialog {
    Q_OBJECT

public:
    using OpenPage = std::function<void(const QUrl&)>;

    /// `openPage` is called at most once, after the dialog has closed, with the button's page.
    UpdateAlert(const UpdateDialog& content, OpenPage openPage);

private:
    QWidget* makeTexts(const UpdateDialog& content);
    QWidget* makeButtons(const QList<UpdateDialogButton>& buttons);

    OpenPage openPage_;
};

} // namespace tarnwick
