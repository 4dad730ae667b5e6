// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

#include <functional>

namespace tarnwick::test {

inline void sendKey(QWidget* target, QEvent::Type type, Qt::Key key, bool isAutoRepeat = false) {
    const QString text = key == Qt::Key_Space ? QStringLiteral(" ") : QStringLiteral("\r");
    QKeyEvent event(type, key, {}, text, isAutoRepeat);
    QCoreApplication::sendEvent(target, &event);
}

/// Presses a key, holds it until it has repeated a few times, and lets it go, each time on the
/// widget that has the focus then.
inline void holdKey(Qt::Key key, const std::function<QWidget*()>& focused) {
    constexpr int repeats = 5;
    sendKey(focused(), QEvent::KeyPress, key);
    for (int i = 0; i < repeats; ++i) {
        sendKey(focused(), QEvent::KeyRelease, key, true);
        sendKey(focused(), QEvent::KeyPress, key, true);
    }
    sendKey(focused(), QEvent::KeyRelease, key);
}

} // namespace tarnwick::test
