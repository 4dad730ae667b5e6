// SPDX-License-Identifier: MIT
#include "ui/controls/rounded_field.h"

#include "ui/style/colors.h"
#include "ui/style/text_style.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace tarnwick {

namespace {

constexpr TextLook look{TextStyle::Body};
constexpr double frameRadius = 5;
constexpr QMargins ownTextMargins{4, 3, 4, 3};

} // namespace

RoundedField::RoundedField(QWidget* parent) : QLineEdit(parent) {
    setFont(look.font());
    setFrame(false);
    setTextMargins(ownTextMargins);
    QPalette transparent;
    transparent.setColor(QPalette::Base, Qt::transparent); // or the style would fill the corners
    setPalette(transparent);
}

void RoundedField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const double line = hasFocus() ? 2 : 1;
        const QRectF frame = QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2);
        painter.setPen(QPen(hasFocus() ? focusColor(palette()) : borderColor(palette()), line));
        painter.setBrush(QApplication::palette(this).color(QPalette::Base));
        painter.drawRoundedRect(frame, frameRadius, frameRadius);
    }
    QLineEdit::paintEvent(event);
}

bool RoundedField::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange)
        setFont(look.font());
    return QLineEdit::event(event);
}

} // namespace tarnwick
