// SPDX-License-Identifier: MIT
#include "ui/controls/scrolling_text.h"

#include "ui/controls/keyboard.h"

#include <QScrollBar>

namespace tarnwick {

namespace {

constexpr int usualWidth = 300;

} // namespace

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

} // namespace tarnwick
