// SPDX-License-Identifier: MIT
#include "ui/style/row_painting.h"

#include "ui/style/colors.h"
#include "ui/style/symbol.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QTransform>
#include <QWidget>

#include <algorithm>
#include <cmath>

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

QRectF wholePixels(const QPainter& painter, const QRectF& rect) {
    const QTransform toPixels = painter.deviceTransform();
    const QRectF pixels = toPixels.mapRect(rect);
    const QPointF topLeft(std::round(pixels.left()), std::round(pixels.top()));
    const QPointF bottomRight(std::round(pixels.right()), std::round(pixels.bottom()));
    return toPixels.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double wholePixelLine(const QPainter& painter, double thickness) {
    const double scale = painter.deviceTransform().m22();
    return std::max(1.0, std::round(thickness * scale)) / scale;
}

void paintFrame(QPainter& painter, const QRectF& rect, double radius, const QColor& line,
                double thickness, const QBrush& filling) {
    const double width = wholePixelLine(painter, thickness);
    const QRectF middle =
        wholePixels(painter, rect).adjusted(width / 2, width / 2, -width / 2, -width / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(line, width));
    painter.setBrush(filling);
    painter.drawRoundedRect(middle, radius, radius);
    painter.restore();
}

void paintLine(QPainter& painter, const QRect& rect, const QString& text, Qt::TextElideMode mode,
               Qt::LayoutDirection layoutDirection, Qt::Alignment vertical) {
    const QString shown = QFontMetricsF(painter.font()).elidedText(text, mode, rect.width() + 0.5);
    const Qt::Alignment leading = QStyle::visualAlignment(layoutDirection, Qt::AlignLeft);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.drawText(rect, int(leading | Qt::AlignAbsolute | vertical) | Qt::TextSingleLine, shown);
}

void paintHighlight(QPainter& painter, const QRect& rect, const QPalette& palette) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(highlightColor(palette));
    painter.drawRoundedRect(
        wholePixels(painter, rect.adjusted(highlightInset, 0, -highlightInset, 0)), cornerRadius,
        cornerRadius);
}

void paintFocusRing(QPainter& painter, const QRect& rect, const QPalette& palette) {
    constexpr int inset = 2; // keeps clear of the panel's border
    constexpr double width = 2;
    paintFrame(painter, rect.adjusted(inset, inset, -inset, -inset), cornerRadius,
               focusColor(palette), width);
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
