// SPDX-License-Identifier: MIT
#include "ui/controls/popover.h"

#include <QApplication>
#include <QEvent>
#include <QLineF>
#include <QPainterPath>
#include <QScreen>

#include <algorithm>

namespace tarnwick {

namespace {

int clampedStart(int start, int length, int first, int last) {
    return std::max(first, std::min(start, last + 1 - length));
}

constexpr double arrowFoot = 3; // radius where the arrow leaves the body
constexpr double arrowTip = 2;

struct PolygonCorner {
    QPointF point;
    double radius;
};

QPainterPath roundedPolygon(const QList<PolygonCorner>& corners) {
    constexpr double circle = 0.5523; // makes a cubic curve a quarter of a circle
    const auto towards = [](const QPointF& from, const QPointF& to, double distance) {
        return QLineF(from, to).pointAt(distance / QLineF(from, to).length());
    };
    QPainterPath path;
    for (qsizetype i = 0; i < corners.size(); ++i) {
        const auto& [point, radius] = corners[i];
        const QPointF before = corners[i == 0 ? corners.size() - 1 : i - 1].point;
        const QPointF after = corners[i + 1 == corners.size() ? 0 : i + 1].point;
        const QPointF start = towards(point, before, radius);
        const QPointF end = towards(point, after, radius);
        if (i == 0)
            path.moveTo(start);
        else
            path.lineTo(start);
        path.cubicTo(start + circle * (point - start), end + circle * (point - end), end);
    }
    path.closeSubpath();
    return path;
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
    const int middle = anchor.top() + anchor.height() / 2; // center() is half a pixel above it
    const int y = clampedStart(middle - height / 2, height, screen.top(), screen.bottom());
    placement.window = QRect(x, y, width, height);
    const int margin = FramelessWindow::cornerRadius + int(arrowFoot) + arrowBase / 2;
    placement.arrowY =
        std::clamp(middle - y, std::min(margin, height / 2), std::max(height - margin, height / 2));
    return placement;
}

QRect PopoverPlacement::contentRect() const {
    const QRect whole(QPoint(0, 0), window.size());
    return isArrowRight ? whole.adjusted(0, 0, -arrowDepth, 0)
                        : whole.adjusted(arrowDepth, 0, 0, 0);
}

QPainterPath PopoverPlacement::outline() const {
    constexpr double radius = FramelessWindow::cornerRadius;
    const QRectF body = contentRect();
    const double near = isArrowRight ? body.right() : body.left();
    const double far = isArrowRight ? body.left() : body.right();
    const double room = std::min(double(arrowY), body.height() - arrowY) - radius - arrowFoot;
    const double half = std::clamp(room, 0.0, arrowBase / 2.0);
    const double depth = arrowDepth * half / (arrowBase / 2.0);
    const double tip = isArrowRight ? near + depth : near - depth;
    return roundedPolygon({{{near, body.top()}, radius},
                           {{near, arrowY - half}, arrowFoot},
                           {{tip, double(arrowY)}, arrowTip},
                           {{near, arrowY + half}, arrowFoot},
                           {{near, body.bottom()}, radius},
                           {{far, body.bottom()}, radius},
                           {{far, body.top()}, radius}});
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
    setVisibleGeometry(placement_.window);
    placeContent();
    setOutline(placement_.outline(), placement_.contentRect());
}

void Popover::placeContent() {
    content_->setGeometry(placement_.contentRect().translated(visibleRect().topLeft()));
}

void Popover::shadowMarginsChanged() {
    placeContent();
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
