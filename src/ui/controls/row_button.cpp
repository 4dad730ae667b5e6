// SPDX-License-Identifier: MIT
#include "ui/controls/row_button.h"

#include "model/display_text.h"
#include "ui/controls/keyboard.h"
#include "ui/style/row_painting.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace tarnwick {

RowButton::RowButton(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QRect RowButton::mirrored(const QRect& rect) const {
    return QStyle::visualRect(layoutDirection(), this->rect(), rect);
}

void RowButton::setHovering(bool hovering) {
    isHovering_ = hovering;
    update();
}

bool RowButton::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QString text = tooltipText();
        if (text.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTooltip(text),
                               this);
        return true;
    }
    if (event->type() == QEvent::ApplicationFontChange)
        updateGeometry();
    return QAbstractButton::event(event);
}

void RowButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    setHovering(true);
}

void RowButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    setHovering(false);
}

void RowButton::hideEvent(QHideEvent* event) {
    QAbstractButton::hideEvent(event);
    setHovering(false); // a hidden widget gets no leave event
}

// Its first click was the press that counts.
void RowButton::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void RowButton::keyPressEvent(QKeyEvent* event) {
    if (isRepeatedPress(*event))
        return;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    if (arrowDirection(*event, layoutDirection()) != 0) {
        event->ignore(); // the window moves the focus
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void RowButton::focusInEvent(QFocusEvent* event) {
    showsFocusRing_ = marksFocus(*this, *event, showsFocusRing_);
    if (showsFocusRing_)
        scrollIntoView(this);
    QAbstractButton::focusInEvent(event);
}

void RowButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (isHighlighted())
        paintHighlight(painter, rect(), palette());
    painter.save();
    if (isDown())
        painter.setOpacity(0.6);
    paintRow(painter);
    painter.restore();
    if (showsFocusRing())
        paintFocusRing(painter, rect(), palette());
}

} // namespace tarnwick
