// SPDX-License-Identifier: MIT
#include "ui/controls/form_button.h"

#include "ui/controls/keyboard.h"
#include "ui/style/colors.h"
#include "ui/style/row_painting.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr double radius = 5;

QColor withOpacity(QColor color, float opacity) {
    color.setAlphaF(opacity);
    return color;
}

} // namespace

FormButton::FormButton(const QString& title, Prominence prominence, QWidget* parent)
    : QPushButton(title, parent), prominence_(prominence) {
    setAttribute(Qt::WA_Hover);
    setDefault(prominence == Prominence::Prominent);
    setFont(TextLook{TextStyle::Body}.font());
}

// The macOS style marks the default button well; other styles do so too faintly to be prominent.
bool FormButton::isDrawnByStyle() const {
    return style()->name() == "macos"_L1;
}

QSize FormButton::sizeHint() const {
    const QSize ofStyle = QPushButton::sizeHint();
    return isDrawnByStyle() ? ofStyle : QSize(ofStyle.width(), controlHeight());
}

bool FormButton::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(TextLook{TextStyle::Body}.font());
        updateGeometry();
    }
    return QPushButton::event(event);
}

FormButton::Look FormButton::look() const {
    const bool isTouched = isEnabled() && (isDown() || underMouse());
    if (prominence_ == Prominence::Prominent && isEnabled()) {
        const auto [accent, title] = prominentColors(palette());
        const QColor background = isTouched ? accent.darker(isDown() ? 120 : 108) : accent;
        return {background, background, title};
    }
    const QColor text = palette().color(QPalette::Active, QPalette::WindowText);
    const float backgroundOpacity = isDown() ? 0.2F : isTouched ? 0.14F : 0.08F;
    constexpr float disabledOpacity = 0.4F;
    return {withOpacity(text, backgroundOpacity), borderColor(palette()),
            isEnabled() ? text : withOpacity(text, disabledOpacity)};
}

void FormButton::focusInEvent(QFocusEvent* event) {
    showsFocusRing_ = marksFocus(*this, *event, showsFocusRing_);
    QPushButton::focusInEvent(event);
}

void FormButton::keyPressEvent(QKeyEvent* event) {
    if (!isRepeatedPress(*event))
        QPushButton::keyPressEvent(event);
}

// Its first click was the press that counts.
void FormButton::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void FormButton::paintEvent(QPaintEvent* event) {
    if (isDrawnByStyle()) {
        QPushButton::paintEvent(event);
        return;
    }
    const Look colors = look();
    QPainter painter(this);
    paintFrame(painter, rect(), radius, colors.edge, 1, colors.background);
    if (hasFocus() && showsFocusRing_) { // inside, where the contrast is known
        const double inset = wholePixelLine(painter, 2);
        paintFrame(painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius - 2,
                   colors.title, 1);
    }
    painter.setPen(colors.title);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace tarnwick
