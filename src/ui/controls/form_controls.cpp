// SPDX-License-Identifier: MIT
#include "ui/controls/form_controls.h"

#include "model/display_text.h"
#include "ui/controls/keyboard.h"
#include "ui/style/colors.h"
#include "ui/style/row_painting.h"
#include "ui/style/text_style.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QValidator>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr TextLook fieldLook{TextStyle::Body};
constexpr double frameRadius = 5;
constexpr int usualWidth = 300;
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

QColor withOpacity(QColor color, float opacity) {
    color.setAlphaF(opacity);
    return color;
}

} // namespace

RoundedField::RoundedField(QWidget* parent) : QLineEdit(parent) {
    setFont(fieldLook.font());
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
        setFont(fieldLook.font());
        updateGeometry();
    }
    return QLineEdit::event(event);
}

ScrollingText::ScrollingText(const TextLook& look, ThemeColor color, QWidget* parent)
    : QScrollArea(parent), label_(new WrappedLabel(look, color, nullptr)) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    viewport()->setAutoFillBackground(false);
    setWidget(label_);
    label_->setAutoFillBackground(false); // setWidget() switches it on
    constexpr int distance = 2;
    new FocusRing(this, distance);
}

void ScrollingText::setText(const QString& text) {
    label_->setContent(text);
    verticalScrollBar()->setValue(0);
    updateGeometry();
    fit();
}

void ScrollingText::setMaximumTextHeight(int height) {
    maximumTextHeight_ = height;
    updateGeometry();
}

QSize ScrollingText::sizeHint() const {
    const int height = label_->heightForWidth(width());
    return {usualWidth, std::min(height, maximumTextHeight_)};
}

QSize ScrollingText::minimumSizeHint() const {
    return label_->minimumSizeHint();
}

void ScrollingText::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    fit();
    updateGeometry(); // the height depends on the width
}

// Without a scroll bar the text has the whole width.
void ScrollingText::fit() {
    const int whole = label_->heightForWidth(width());
    const bool scrolls = whole > height();
    const int textWidth = scrolls ? width() - verticalScrollBar()->sizeHint().width() : width();
    setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    label_->resize(textWidth, label_->heightForWidth(textWidth));
    setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
}

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
    paintFrame(painter, rect(), frameRadius, colors.edge, 1, colors.background);
    if (hasFocus() && showsFocusRing_) { // inside, where the contrast is known
        const double inset = wholePixelLine(painter, 2);
        paintFrame(painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset), frameRadius - 2,
                   colors.title, 1);
    }
    painter.setPen(colors.title);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace tarnwick
