// SPDX-License-Identifier: MIT
#include "ui/windows/floating_dialog.h"

#include "ui/controls/font_change_forwarder.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace tarnwick {

FloatingDialog::FloatingDialog(const QString& title)
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint) {
    setWindowTitle(title);
    new FontChangeForwarder(this);
}

void FloatingDialog::present() {
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (screen) {
        ensurePolished();
        adjustSize();
        QRect frame(QPoint(), size());
        frame.moveCenter(screen->availableGeometry().center());
        move(frame.topLeft());
    }
    show();
    raise();
    activateWindow();
}

} // namespace tarnwick
