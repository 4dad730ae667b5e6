// SPDX-License-Identifier: MIT
#pragma once

#include "update/update_service.h"

#include <QList>
#include <QString>
#include <QUrl>

namespace tarnwick {

/// One button of the update dialog. All of them dismiss it.
struct UpdateDialogButton {
    QString title;
    bool isDefault = false; ///< Return presses it.
    bool isCancel = false;  ///< Escape presses it.
    QUrl opens = {};        ///< Web page to open after the dialog has closed; empty: none.

    bool operator==(const UpdateDialogButton&) const = default;
};

/// What the update dialog shows, as a value. All texts are plain text, never markup.
struct UpdateDialog {
    QString messageText;
    QString informativeText;
    QList<UpdateDialogButton> buttons; ///< In the order in which they are shown.

    bool operator==(const UpdateDialog&) const = default;

    static UpdateDialog forResult(const UpdateCheckResult& result, const QUrl& downloadPage);
};

} // namespace tarnwick
