// SPDX-License-Identifier: MIT
#include "ui/controls/wrapped_label.h"

#include "ui/controls/display_text.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr int panelTextWidth = 268; // the panel's width without padding

/// Breaks the text into lines of `width` and returns their total height.
double breakIntoLines(QTextLayout& layout, int width, Qt::Alignment alignment) {
    QTextOption option(alignment | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    layout.setTextOption(option);
    double height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += std::ceil(line.height());
    }
    layout.endLayout();
    return height;
}

QString withLineSeparators(QString text) {
    return text.replace(u'\n', QChar::LineSeparator);
}

} // namespace

WrappedLabel::WrappedLabel(const TextLook& look, ThemeColor color, QWidget* parent)
    : StyledLabel(look, color, parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize WrappedLabel::sizeHint() const {
    return {panelTextWidth, heightForWidth(panelTextWidth)};
}

QSize WrappedLabel::minimumSizeHint() const {
    return {0, QFontMetrics(font()).height()};
}

bool WrappedLabel::hasHeightForWidth() const {
    return true;
}

int WrappedLabel::heightForWidth(int width) const {
    QTextLayout layout(withLineSeparators(text()), font());
    const int oneLine = QFontMetrics(font()).height();
    return std::max(oneLine, qCeil(breakIntoLines(layout, width, Qt::AlignLeft)));
}

void WrappedLabel::showContent() {
    const QString lines = multiLineText(content());
    setText(lines);
    setAccessibleName(lines);
}

bool WrappedLabel::isCut() const {
    return false;
}

void WrappedLabel::paintEvent(QPaintEvent*) {
    QTextLayout layout(withLineSeparators(text()), font());
    breakIntoLines(layout, width(), QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft));
    QPainter painter(this);
    painter.setPen(textColor());
    layout.draw(&painter, QPointF(0, 0));
}

} // namespace tarnwick
