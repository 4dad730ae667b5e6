// SPDX-License-Identifier: MIT
#include "ui/controls/held_key_filter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

namespace tarnwick {

namespace {

bool pressesSomething(const QObject* target, const QKeyEvent& event) {
    if (target->isWindowType()) // which passes it on
        target = QApplication::focusWidget();
    if (event.key() == Qt::Key_Space)
        return qobject_cast<const QAbstractButton*>(target) != nullptr;
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

HeldKeyFilter::HeldKeyFilter() {
    qApp->installEventFilter(this);
}

bool HeldKeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return false;
    const auto& keyEvent = static_cast<const QKeyEvent&>(*event);
    if (event->type() == QEvent::KeyRelease) {
        lastRelease_ = keyEvent.timestamp();
        return false;
    }
    const bool isSynthetic = keyEvent.timestamp() == 0;
    return !isSynthetic && keyEvent.timestamp() == lastRelease_ &&
           pressesSomething(watched, keyEvent);
}

} // namespace tarnwick
