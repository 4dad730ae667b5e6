// SPDX-License-Identifier: MIT
#include "ui/controls/popover.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>

#include <algorithm>

namespace tarnwick {

namespace {

int clampedStart(int start, int length, int first, int last) {
    return std::max(first, std::min(start, last + 1 - length));
}

} // namespace

PopoverPlacement PopoverPlacement::beside(const QRect& anchor, const QSize& content,
                                          const QRect& screen, Qt::LayoutDirection direction) {
    const int width = content.width() + arrowDepth;
    const int height = std::min(content.height(), screen.height());
    const int leftStart = anchor.left() - width;
    const int rightStart = anchor.right() + 1;
    const bool fitsLeft = leftStart >= screen.left();
    const bool fitsRight = rightStart + width - 1 <= screen.right();

    PopoverPlacement placement;
    const bool wantsLeft = direction == Qt::LeftToRight;
    const bool isLeft = wantsLeft ? fitsLeft || !fitsRight : fitsLeft && !fitsRight;
    placement.isArrowRight = isLeft;
    const int x =
        clampedStart(isLeft ? leftStart : rightStart, width, screen.left(), screen.right());
    const int y =
        clampedStart(anchor.center().y() - height / 2, height, screen.top(), screen.bottom());
    placement.window = QRect(x, y, width, height);
    const int margin = FramelessWindow::cornerRadius + arrowBase / 2;
    placement.arrowY = std::clamp(anchor.center().y() - y, std::min(margin, height / 2),
                                  std::max(height - margin, height / 2));
    return placement;
}

QRect PopoverPlacement::contentRect() const {
    const QRect whole(QPoint(0, 0), window.size());
    return isArrowRight ? whole.adjusted(0, 0, -arrowDepth, 0)
                        : whole.adjusted(arrowDepth, 0, 0, 0);
}

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
