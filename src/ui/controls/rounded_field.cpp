// SPDX-License-Identifier: MIT
#include "ui/controls/rounded_field.h"

#include "model/display_text.h"
#include "ui/controls/keyboard.h"
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

void RoundedField::focusInEvent(QFocusEvent* event) {
    showsFocusRing_ = marksFocus(*this, *event, showsFocusRing_);
    QLineEdit::focusInEvent(event);
}

void RoundedField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        // A click marks by the line's colour, with no ring, where the keys go.
        const double line = hasFocus() && showsFocusRing_ ? 2 : 1;
        paintFrame(painter, rect(), frameRadius,
                   hasFocus() ? focusColor(palette()) : borderColor(palette()), line,
                   QApplication::palette(this).color(QPalette::Base));
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
