// SPDX-License-Identifier: MIT
#include "ui/windows/screen_center.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tarnwick {

void centerOnScreen(QWidget& window) {
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    window.ensurePolished();
    window.adjustSize();
    QRect frame(QPoint(), window.size());
    frame.moveCenter(screen->availableGeometry().center());
    window.move(frame.topLeft());
}

} // namespace tarnwick
