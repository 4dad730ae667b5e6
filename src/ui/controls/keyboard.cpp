// SPDX-License-Identifier: MIT
#include "ui/controls/keyboard.h"

#include "ui/style/row_painting.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace tarnwick {

namespace {

/// The controls of the window that Tab can reach, in visual order.
QList<QWidget*> controls(const QWidget* window) {
    QList<std::pair<QPoint, QWidget*>> found;
    const bool isMirrored = window->layoutDirection() == Qt::RightToLeft;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (!takesTab || widget->window() != window || !widget->isVisibleTo(window))
            continue;
        const QPoint place = widget->mapTo(window, QPoint(0, 0));
        const int along = isMirrored ? -place.x() - widget->width() : place.x();
        found.append({QPoint(along, place.y()), widget});
    }
    std::ranges::stable_sort(found, [](const auto& one, const auto& other) {
        return std::pair(one.first.y(), one.first.x()) <
               std::pair(other.first.y(), other.first.x());
    });
    QList<QWidget*> widgets;
    for (const auto& [place, widget] : std::as_const(found))
        widgets.append(widget);
    return widgets;
}

bool pressesSomething(const QObject* target, const QKeyEvent& event) {
    if (target->isWindowType()) // which passes it on
        target = QApplication::focusWidget();
    if (event.key() == Qt::Key_Space)
        return qobject_cast<const QAbstractButton*>(target) != nullptr;
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

bool isKeyboardReason(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

bool marksFocus(const QWidget& control, const QFocusEvent& event, bool before) {
    // A dialog that opens pretends to its default button that a Tab came.
    const bool isPretended = !control.hasFocus();
    // A window that becomes active again restores its focus; the mark stays as it was.
    const bool isRestored =
        event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
    return isPretended || isRestored ? before : isKeyboardReason(event.reason());
}

bool isRepeatedPress(const QKeyEvent& event) {
    const int key = event.key();
    return event.isAutoRepeat() &&
           (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space);
}

int arrowDirection(const QKeyEvent& event, Qt::LayoutDirection layoutDirection) {
    const int along = layoutDirection == Qt::LeftToRight ? 1 : -1;
    switch (event.key()) {
    case Qt::Key_Down:
        return 1;
    case Qt::Key_Up:
        return -1;
    case Qt::Key_Right:
        return along;
    case Qt::Key_Left:
        return -along;
    default:
        return 0;
    }
}

bool moveFocus(QWidget* window, int direction) {
    const QList<QWidget*> widgets = controls(window);
    if (widgets.isEmpty())
        return false;
    const qsizetype now = widgets.indexOf(window->focusWidget());
    const qsizetype last = widgets.size() - 1;
    qsizetype next = direction > 0 ? 0 : last;
    if (now >= 0 && direction > 0)
        next = now == last ? 0 : now + 1;
    else if (now >= 0)
        next = now == 0 ? last : now - 1;
    widgets[next]->setFocus(direction > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void scrollIntoView(QWidget* widget) {
    for (QWidget* above = widget->parentWidget(); above != nullptr; above = above->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(above)) {
            area->ensureWidgetVisible(widget, 0, 0);
            return;
        }
    }
}

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

FocusRing::FocusRing(QWidget* control, int distance)
    : QWidget(control), control_(control), distance_(distance) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    control->installEventFilter(this);
    // While it is shown it is the window's child, so that it may lie around the control.
    QObject::connect(control, &QObject::destroyed, this, &QObject::deleteLater);
}

bool FocusRing::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        review(*static_cast<const QFocusEvent*>(event));
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (isVisible())
            place();
        break;
    default:
        break;
    }
    return false;
}

void FocusRing::review(const QFocusEvent& event) {
    if (event.gotFocus())
        isMarked_ = marksFocus(*control_, event, isMarked_);
    const bool isShown = event.gotFocus() && isMarked_;
    if (isShown)
        place();
    setVisible(isShown);
}

void FocusRing::place() {
    constexpr int ringRoom = 4; // what paintFocusRing() leaves free, and the ring
    const int outset = distance_ + ringRoom;
    QWidget* window = control_->window();
    const bool wasVisible = isVisible();
    if (parentWidget() != window)
        setParent(window);
    setGeometry(QRect(control_->mapTo(window, QPoint(0, 0)), control_->size())
                    .adjusted(-outset, -outset, outset, outset));
    raise();
    setVisible(wasVisible);
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFocusRing(painter, rect(), palette());
}

} // namespace tarnwick
