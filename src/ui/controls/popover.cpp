// SPDX-License-Identifier: MIT
#include "ui/controls/popover.h"

#include "ui/controls/font_change_forwarder.h"
#include "ui/controls/keyboard_focus.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>

namespace tarnwick {

Popover::Popover(QWidget* anchor, QWidget* content)
    : QWidget(anchor, Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      anchor_(anchor), content_(content), surface_(this) {
    content_->setParent(this);
    setWindowTitle(content_->accessibleName());
    new FontChangeForwarder(this);
}

void Popover::present() {
    place();
    surface_.prepareToShow();
    qApp->installEventFilter(this);
    setFocus(Qt::OtherFocusReason); // else a window that becomes active focuses its first control
    show();
    raise();
    activateWindow();
}

void Popover::dismiss() {
    qApp->removeEventFilter(this);
    if (isActiveWindow() && anchor_->isVisible())
        anchor_->window()->activateWindow();
    hide();
}

void Popover::place() {
    const QRect anchor(anchor_->mapToGlobal(QPoint(0, 0)), anchor_->size());
    QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (screen == nullptr)
        screen = anchor_->screen();
    placement_ = PopoverPlacement::beside(anchor, content_->sizeHint(), screen->availableGeometry(),
                                          layoutDirection());
    setGeometry(placement_.window);
    content_->setGeometry(placement_.contentRect());
    surface_.setShape(outline());
}

QPainterPath Popover::outline() const {
    QPainterPath shape = roundedShape(placement_.contentRect());
    const QRectF body = placement_.contentRect();
    const double half = PopoverPlacement::arrowBase / 2.0;
    const double edge = placement_.isArrowRight ? body.right() : body.left();
    const double tip = placement_.isArrowRight ? double(width()) : 0.0;
    const double y = placement_.arrowY;
    QPainterPath arrow;
    arrow.moveTo(edge, y - half);
    arrow.lineTo(tip, y);
    arrow.lineTo(edge, y + half);
    arrow.closeSubpath();
    return shape.united(arrow);
}

bool Popover::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest && isVisible())
        place();
    if (event->type() == QEvent::WindowDeactivate && isVisible())
        QMetaObject::invokeMethod(this, &Popover::reviewActivation, Qt::QueuedConnection);
    return QWidget::event(event);
}

void Popover::reviewActivation() {
    const QWidget* active = QApplication::activeWindow();
    if (isVisible() && active != this && active != anchor_->window())
        Q_EMIT dismissedByUser();
}

bool Popover::belongsToAnchor(const QObject* watched) const {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    return widget == anchor_ || (widget != nullptr && anchor_->isAncestorOf(widget));
}

bool Popover::isAboveAnchor(const QObject* watched) const {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    return widget == anchor_ || (widget != nullptr && widget->isAncestorOf(anchor_));
}

bool Popover::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (widget == nullptr)
        return false;
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if (isPress && widget->window() != this && !belongsToAnchor(watched))
        Q_EMIT dismissedByUser();
    const bool isMove = event->type() == QEvent::Move || event->type() == QEvent::Resize;
    if (isMove && isAboveAnchor(watched))
        place();
    return false;
}

void Popover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT dismissedByUser();
    else if (const int direction = arrowDirection(*event, layoutDirection()); direction != 0)
        moveFocus(this, direction);
    else
        QWidget::keyPressEvent(event);
}

bool Popover::focusNextPrevChild(bool next) {
    return moveFocus(this, next ? 1 : -1);
}

void Popover::paintEvent(QPaintEvent*) {
    surface_.paint();
}

} // namespace tarnwick
