// SPDX-License-Identifier: MIT
#include "ui/controls/popover.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>

namespace tarnwick {

Popover::Popover(QWidget* anchor, QWidget* content)
    : FramelessWindow(anchor), anchor_(anchor), content_(content) {
    content_->setParent(this);
    setWindowTitle(content_->accessibleName());
}

void Popover::present() {
    place();
    qApp->installEventFilter(this);
    showInFront();
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
    setOutline(outline());
}

QPainterPath Popover::outline() const {
    QPainterPath shape = roundedOutline(placement_.contentRect());
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
    return FramelessWindow::event(event);
}

void Popover::deactivated() {
    QMetaObject::invokeMethod(this, &Popover::reviewActivation, Qt::QueuedConnection);
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

void Popover::escape() {
    Q_EMIT dismissedByUser();
}

} // namespace tarnwick
