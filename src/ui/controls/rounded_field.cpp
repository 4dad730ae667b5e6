// SPDX-License-Identifier: MIT
#include "ui/controls/rounded_field.h"

#include "model/display_text.h"
#include "ui/style/colors.h"
#include "ui/style/row_painting.h"
#include "ui/style/text_style.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QValidator>

namespace tarnwick {

namespace {

constexpr TextLook look{TextStyle::Body};
constexpr double frameRadius = 5;
constexpr QMargins ownTextMargins{4, 3, 4, 3};

/// Sees the text before line breaks are shown as blanks.
class OneLineValidator : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& input, int& cursor) const override {
        dropLineBreaks(input, cursor);
        return input.size() > RoundedField::longestText ? Invalid : Acceptable;
    }
};

} // namespace

RoundedField::RoundedField(QWidget* parent) : QLineEdit(parent) {
    setFont(look.font());
    setFrame(false);
    setTextMargins(ownTextMargins);
    setMaxLength(2 * longestText); // beyond it Qt would cut, where the validator can refuse
    setValidator(new OneLineValidator(this));
    QPalette transparent;
    transparent.setColor(QPalette::Base, Qt::transparent); // or the style would fill the corners
    setPalette(transparent);
}

QSize RoundedField::sizeHint() const {
    return {QLineEdit::sizeHint().width(), controlHeight()};
}

QSize RoundedField::minimumSizeHint() const {
    return {QLineEdit::minimumSizeHint().width(), controlHeight()};
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
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(look.font());
        updateGeometry();
    }
    return QLineEdit::event(event);
}

} // namespace tarnwick
