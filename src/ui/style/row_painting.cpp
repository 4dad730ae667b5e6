// SPDX-License-Identifier: MIT
#include "ui/style/row_painting.h"

#include "ui/style/colors.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QStyle>

namespace tarnwick {

namespace {

constexpr double cornerRadius = 4;

}

int scaled(int size) {
    return qRound(size * userTextScale());
}

int symbolSize(TextStyle style) {
    // The symbols' box is a quarter larger than the letters' size, so that their ink matches.
    return qRound(scaledSize(style) * 1.25);
}

int symbolColumnWidth() {
    return scaled(16);
}

int lineHeight(const TextLook& look) {
    return QFontMetrics(look.font()).height();
}

int textAdvance(const QFont& font, const QString& text) {
    return qCeil(QFontMetricsF(font).horizontalAdvance(text));
}

void paintLine(QPainter& painter, const QRect& rect, const QString& text, Qt::TextElideMode mode,
               Qt::LayoutDirection layoutDirection) {
    const QString shown = QFontMetricsF(painter.font()).elidedText(text, mode, rect.width() + 0.5);
    const Qt::Alignment leading = QStyle::visualAlignment(layoutDirection, Qt::AlignLeft);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(rect, int(leading | Qt::AlignAbsolute | Qt::AlignVCenter) | Qt::TextSingleLine,
                     shown);
}

void paintHighlight(QPainter& painter, const QRect& rect, const QPalette& palette) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(highlightColor(palette));
    painter.drawRoundedRect(rect, cornerRadius, cornerRadius);
}

void paintFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette) {
    constexpr double inset = 2; // clear of the panel's border
    constexpr double width = 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(focusColor(palette), width));
    painter.setBrush(Qt::NoBrush);
    const double edge = inset + width / 2;
    painter.drawRoundedRect(QRectF(rect).adjusted(edge, edge, -edge, -edge), cornerRadius,
                            cornerRadius);
}

} // namespace tarnwick
