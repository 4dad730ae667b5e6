// SPDX-License-Identifier: MIT
#include "ui/controls/elided_label.h"

#include "ui/controls/display_text.h"
#include "ui/style/row_painting.h"

#include <QPainter>

namespace tarnwick {

ElidedLabel::ElidedLabel(const TextLook& look, ThemeColor color, QWidget* parent)
    : StyledLabel(look, color, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode) {
    mode_ = mode;
    update();
}

QSize ElidedLabel::sizeHint() const {
    return {textAdvance(font(), text()), QFontMetrics(font()).height()};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, QFontMetrics(font()).height()};
}

void ElidedLabel::showContent() {
    const QString line = singleLineText(content());
    setText(line);
    setAccessibleName(line); // QLabel would drop "&" as a shortcut mark
}

bool ElidedLabel::isCut() const {
    return text() != singleLineText(content()) || text().size() < content().size() ||
           textAdvance(font(), text()) > width();
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(textColor());
    paintLine(painter, rect(), text(), mode_, layoutDirection());
}

} // namespace tarnwick
