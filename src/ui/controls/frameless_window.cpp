// SPDX-License-Identifier: MIT
#include "ui/controls/frameless_window.h"

#include "desktop/compositing.h"
#include "ui/controls/font_change_forwarder.h"
#include "ui/controls/keyboard_focus.h"
#include "ui/style/colors.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRegion>

namespace tarnwick {

FramelessWindow::FramelessWindow(QWidget* parent) : QWidget(parent, flags) {
    setAttribute(Qt::WA_TranslucentBackground);
    new FontChangeForwarder(this);
}

void FramelessWindow::setVisible(bool visible) {
    if (visible && !isVisible()) {
        isComposited_ = isScreenComposited(); // a compositor may have started or ended
        applyMask();
    }
    QWidget::setVisible(visible);
}

void FramelessWindow::showInFront() {
    setFocus(Qt::OtherFocusReason); // or activation would focus the first control
    show();
    raise();
    activateWindow();
}

void FramelessWindow::setOutline(const QPainterPath& outline) {
    if (outline == outline_)
        return;
    outline_ = outline;
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

void FramelessWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isComposited_) // the mask's corners have no alpha
        painter.fillRect(rect(), backgroundColor(palette()));
    painter.fillPath(outline_, backgroundColor(palette()));
    // The outer half of this line is clipped away.
    painter.setClipPath(outline_);
    painter.strokePath(outline_, QPen(borderColor(palette()), 2));
}

} // namespace tarnwick
