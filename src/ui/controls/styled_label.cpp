// SPDX-License-Identifier: MIT
#include "ui/controls/styled_label.h"

#include "ui/controls/display_text.h"

#include <QHelpEvent>
#include <QToolTip>

namespace tarnwick {

StyledLabel::StyledLabel(const TextLook& look, ThemeColor color, QWidget* parent)
    : QLabel(parent), look_(look), color_(color) {
    setTextFormat(Qt::PlainText);
    setFont(look_.font());
}

void StyledLabel::setLook(const TextLook& look) {
    if (look == look_)
        return;
    look_ = look;
    setFont(look_.font());
    updateGeometry();
}

void StyledLabel::setColor(ThemeColor color) {
    if (color == color_)
        return;
    color_ = color;
    update();
}

void StyledLabel::setContent(const QString& content) {
    if (content == content_)
        return;
    content_ = content;
    showContent();
    updateGeometry();
    update();
}

bool StyledLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        showTooltip(static_cast<QHelpEvent*>(event)->globalPos());
        return true;
    }
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(look_.font());
        updateGeometry();
    }
    return QLabel::event(event);
}

void StyledLabel::showTooltip(const QPoint& position) {
    if (isCut())
        QToolTip::showText(position, plainTooltip(content_), this);
    else
        QToolTip::hideText();
}

} // namespace tarnwick
