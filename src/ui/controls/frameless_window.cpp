// SPDX-License-Identifier: MIT
#include "ui/controls/frameless_window.h"

#include "desktop/window_system.h"
#include "ui/controls/font_change_forwarder.h"
#include "ui/controls/keyboard.h"
#include "ui/style/colors.h"
#include "ui/style/row_painting.h"

#include <QAccessibleWidget>
#include <QBackingStore>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QRegion>
#include <QWindow>

#include <utility>

namespace tarnwick {

namespace {

/// Reports the window's place without its shadow.
class AccessibleFramelessWindow : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    QRect rect() const override {
        const auto* window = static_cast<const FramelessWindow*>(widget());
        const QRect visible = window->visibleRect();
        return visible.translated(QAccessibleWidget::rect().topLeft());
    }
};

QAccessibleInterface* accessibleWindow(const QString&, QObject* object) {
    auto* window = qobject_cast<FramelessWindow*>(object);
    return window == nullptr ? nullptr : new AccessibleFramelessWindow(window);
}

} // namespace

FramelessWindow::FramelessWindow(QWidget* parent) : QWidget(parent, flags) {
    setAttribute(Qt::WA_TranslucentBackground);
    QAccessible::installFactory(accessibleWindow); // once, however often it is called
    new FontChangeForwarder(this);
}

FramelessWindow::~FramelessWindow() = default;

void FramelessWindow::setVisible(bool visible) {
    if (visible && !isVisible()) {
        updateShadow(); // a compositor may have started or ended
        isFirstFrame_ = true;
        compositorWatch_ = watchCompositor([this] { updateShadow(); });
        if (windowHandle() == nullptr)
            create(); // winId() would make a window of each control of the parent as well
        setLeftOutOfTaskBars(*windowHandle(), windowFlags().testFlag(Qt::FramelessWindowHint));
        openedAt_ = pos();
    }
    QWidget::setVisible(visible);
}

bool FramelessWindow::canHaveShadow() const {
    return isScreenComposited() && canDeclareShadow();
}

void FramelessWindow::updateShadow() {
    const bool hasShadow = windowFlags().testFlag(Qt::FramelessWindowHint) && canHaveShadow();
    const QMargins margins = hasShadow ? WindowShadow::margins : QMargins();
    isComposited_ = isScreenComposited();
    if (margins != shadowMargins_) {
        const QRect visible = visibleGeometry();
        shadowMargins_ = margins;
        shadowMarginsChanged();
        setVisibleGeometry(visible);
    }
    applyMask();
    update();
}

void FramelessWindow::setVisibleGeometry(const QRect& visible) {
    if (!isVisible())
        declaredRoomAbove_ = roomAbove(visible);
    const int room = shadowMargins_.isNull() ? 0 : declaredRoomAbove_;
    const QRect shaded = visible.marginsAdded(shadowMargins_);
    const int above = shaded.top() - geometry().top();
    const bool fits = above >= 0 && shaded.marginsAdded({0, above, 0, 0}) == geometry();
    if (isVisible() && room > 0 && fits) {
        roomAbove_ = above;
        visibleRectChanged();
    } else {
        roomAbove_ = room;
        setGeometry(shaded.marginsAdded({0, room, 0, 0}));
    }
}

void FramelessWindow::showInFront() {
    setFocus(Qt::OtherFocusReason); // or activation would focus the first control
    show();
    raise();
    activateWindow();
}

void FramelessWindow::setOutline(const QPainterPath& outline, const QRect& body) {
    if (outline == outline_)
        return;
    outline_ = outline;
    body_ = body;
    applyMask();
    update();
}

QPainterPath FramelessWindow::roundedOutline(const QRectF& rect) {
    QPainterPath outline;
    outline.addRoundedRect(rect, cornerRadius, cornerRadius);
    return outline;
}

void FramelessWindow::applyMask() {
    if (isComposited_)
        clearMask();
    else
        setMask(QRegion(outline_.toFillPolygon().toPolygon()));
    declareShape();
}

void FramelessWindow::declareShape() {
    const bool hadShadow = hasDeclaredShadow_;
    hasDeclaredShadow_ = !shadowMargins_.isNull();
    if (!hasDeclaredShadow_ && !hadShadow)
        return;
    // The system's window has to know before it is shown.
    if (windowHandle() == nullptr)
        create();
    constexpr int anySize = 16'000;
    QPainterPath whole;
    whole.addRect(0, 0, anySize, anySize);
    const QPoint corner = visibleRect().topLeft();
    const QMargins margins = shadowMargins_ + QMargins(0, declaredRoomAbove_, 0, 0);
    declareShadow(*windowHandle(), hasDeclaredShadow_ ? margins : QMargins(),
                  hasDeclaredShadow_ ? outline_.translated(corner) : whole);
}

bool FramelessWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate && isVisible())
        deactivated();
    return QWidget::event(event);
}

void FramelessWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        escape();
    else if (const int direction = arrowDirection(*event, layoutDirection()); direction != 0)
        moveFocus(this, direction);
    else
        QWidget::keyPressEvent(event);
}

bool FramelessWindow::focusNextPrevChild(bool next) {
    return moveFocus(this, next ? 1 : -1);
}

void FramelessWindow::paintEvent(QPaintEvent* event) {
    // Window managers that put a window of theirs around this one copy the part that takes clicks
    // only when they see it change, and see nothing before they have shown it.
    if (std::exchange(isFirstFrame_, false)) {
        declareShape();
        // MATE's window manager moves a new window until its shadow is on the screen too; where it
        // is moved to afterwards, it may stay.
        if (!shadowMargins_.isNull() && pos() != openedAt_)
            move(openedAt_);
    }
    QPainter painter(this);
    if (!isComposited_) // the mask's corners have no alpha
        painter.fillRect(rect(), backgroundColor(palette()));
    const QPoint corner = visibleRect().topLeft();
    const QRect opaque = body_.translated(corner).adjusted(0, cornerRadius, 0, -cornerRadius);
    if (!shadowMargins_.isNull() && !opaque.contains(event->region().boundingRect()))
        shadow_.paint(painter, body_.translated(corner), palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(corner);
    painter.fillPath(outline_, backgroundColor(palette()));
    // The outer half of this line is clipped away.
    painter.setClipPath(outline_);
    painter.strokePath(outline_, QPen(borderColor(palette()), 2 * wholePixelLine(painter, 1)));
}

void FramelessWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    shadow_.release();
    compositorWatch_.reset();
    // The picture of a hidden window: shared with the display server, megabytes on fine screens.
    // Qt resizes and paints it anew before the next first frame.
    if (QBackingStore* picture = backingStore())
        picture->resize({1, 1});
}

} // namespace tarnwick
