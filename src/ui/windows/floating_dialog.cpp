// SPDX-License-Identifier: MIT
#include "ui/windows/floating_dialog.h"

#include "platform/queues.h"
#include "platform/system_calls.h"
#include "ui/controls/font_change_forwarder.h"
#include "ui/controls/keyboard.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

namespace tarnwick {

FloatingDialog::FloatingDialog(const QString& title)
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint) {
    setWindowTitle(title);
    new FontChangeForwarder(this);
}

// What its controls took, some 700 KiB, would stay with the allocator. They go after this.
FloatingDialog::~FloatingDialog() {
    postToMainQueue(returnFreedMemory);
}

// A text field leaves Return to the dialog, which would press its default button.
void FloatingDialog::keyPressEvent(QKeyEvent* event) {
    if (!isRepeatedPress(*event))
        QDialog::keyPressEvent(event);
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
