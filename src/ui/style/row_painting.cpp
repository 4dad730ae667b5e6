// SPDX-License-Identifier: MIT
#include "ui/style/row_painting.h"

#include "ui/style/colors.h"
#include "ui/style/symbol.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr double cornerRadius = 4;
constexpr int highlightInset = 4; // or its corners would be nicks in the panel's edge
constexpr int chevronWidth = 5;   // of its ink, so that it ends at the padding

QRect mirrored(const QWidget& widget, const QRect& rect) {
    return QStyle::visualRect(widget.layoutDirection(), widget.rect(), rect);
}

} // namespace

int scaled(int size) {
    return qRound(size * userTextScale());
}

int symbolSize(TextStyle style) {
    // A symbol's box is a quarter larger than the font size, so that its ink matches the letters.
    // An even difference to the column's width lets their centres meet on a whole pixel.
    const int column = symbolColumnWidth();
    return column + 2 * qRound((scaledSize(style) * 1.25 - column) / 2);
}

int symbolColumnWidth() {
    return scaled(16);
}

int controlHeight() {
    constexpr int verticalPadding = 6;
    return lineHeight({TextStyle::Body}) + 2 * verticalPadding;
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
    painter.drawRoundedRect(rect.adjusted(highlightInset, 0, -highlightInset, 0), cornerRadius,
                            cornerRadius);
}

void paintFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette) {
    constexpr double inset = 2; // keeps clear of the panel's border
    constexpr double width = 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(focusColor(palette), width));
    painter.setBrush(Qt::NoBrush);
    const double edge = inset + width / 2;
    painter.drawRoundedRect(QRectF(rect).adjusted(edge, edge, -edge, -edge), cornerRadius,
                            cornerRadius);
}

int RowGeometry::rowHeight() const {
    return std::max(lineHeight(look), symbolSize(look.style)) + 2 * verticalPadding;
}

QRect RowGeometry::symbolRect(const QRect& row) const {
    return {row.left() + horizontalPadding, row.top(), symbolColumnWidth(), row.height()};
}

QRect RowGeometry::textRect(const QRect& row) const {
    QRect text = row.adjusted(horizontalPadding, 0, -horizontalPadding, 0);
    text.setLeft(text.left() + symbolColumnWidth() + gap);
    return text;
}

QRect RowGeometry::textRectBeforeChevron(const QRect& row) const {
    return textRect(row).adjusted(0, 0, -scaled(chevronWidth) - gap, 0);
}

QRect RowGeometry::chevronRect(const QRect& row) const {
    const int width = scaled(chevronWidth);
    return {row.right() + 1 - horizontalPadding - width, row.top(), width, row.height()};
}

void RowGeometry::paintSymbolAndTitle(QPainter& painter, const QWidget& widget,
                                      const QString& symbol, const QString& title,
                                      const QRect& titleRect) const {
    const QColor color = themeColor(ThemeColor::Label, widget.palette());
    paintSymbol(painter, mirrored(widget, symbolRect(widget.rect())), symbol,
                symbolSize(look.style), color);
    painter.setFont(look.font());
    painter.setPen(color);
    paintLine(painter, mirrored(widget, titleRect), title, Qt::ElideRight,
              widget.layoutDirection());
}

void RowGeometry::paintChevron(QPainter& painter, const QWidget& widget) const {
    paintDirectedSymbol(painter, mirrored(widget, chevronRect(widget.rect())), u"chevron.right"_s,
                        scaledSize(TextStyle::Caption2),
                        themeColor(ThemeColor::Secondary, widget.palette()),
                        widget.layoutDirection());
}

} // namespace tarnwick
