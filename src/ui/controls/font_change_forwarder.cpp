// SPDX-License-Identifier: MIT
#include "ui/controls/font_change_forwarder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace tarnwick {

FontChangeForwarder::FontChangeForwarder(QWidget* window) : QObject(window) {
    window->installEventFilter(this);
}

bool FontChangeForwarder::eventFilter(QObject* watched, QEvent* event) {
    if (watched != parent() || event->type() != QEvent::ApplicationFontChange)
        return false;
    const auto* window = static_cast<const QWidget*>(watched);
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->window() != window)
            continue;
        QEvent forwarded(QEvent::ApplicationFontChange);
        QCoreApplication::sendEvent(widget, &forwarded);
    }
    return false;
}

} // namespace tarnwick
