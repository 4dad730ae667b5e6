// SPDX-License-Identifier: MIT
#include "ui/style/symbol.h"

#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPixmapCache>
#include <QPolygonF>

#include <array>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// Symbols are drawn by code and not from SVG files: Qt's library for those weighs half a megabyte
// in a client that has nothing else to do with it.

constexpr double drawingSize = 16; // of the square that they are drawn in
constexpr double usualLine = 1.25;
constexpr double heavyLine = 1.9;

/// Continues in a line to the start of an arc, then along it; angles in degrees, counterclockwise
/// from three o'clock.
void continueAlong(QPainterPath& path, const QPointF& center, double radius, double start,
                   double sweep) {
    path.arcTo({center.x() - radius, center.y() - radius, 2 * radius, 2 * radius}, start, sweep);
}

void drawRing(QPainter& painter) {
    painter.drawEllipse(QPointF(8, 8), 6.25, 6.25);
}

void fillCircles(QPainter& painter, double radius, const QList<QPointF>& centers) {
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    for (const QPointF& center : centers)
        painter.drawEllipse(center, radius, radius);
    painter.restore();
}

void drawLines(QPainter& painter, const QList<QPolygonF>& lines) {
    for (const QPolygonF& line : lines)
        painter.drawPolyline(line);
}

void drawArrowClockwise(QPainter& painter) {
    painter.drawArc(QRectF(2.4, 2.81, 11.2, 11.2), -18 * 16, -304 * 16);
    drawLines(painter, {{{12.7, 1.9}, {12.5, 5}, {9.4, 4.9}}});
}

void drawArrowDownCircle(QPainter& painter) {
    drawRing(painter);
    drawLines(painter, {{{8, 4.75}, {8, 11}}, {{5.4, 8.6}, {8, 11.2}, {10.6, 8.6}}});
}

void drawArrowLeftArrowRight(QPainter& painter) {
    drawLines(painter, {{{2, 4.5}, {13.5, 4.5}},
                        {{4.75, 1.75}, {2, 4.5}, {4.75, 7.25}},
                        {{2.5, 11.5}, {14, 11.5}},
                        {{11.25, 8.75}, {14, 11.5}, {11.25, 14.25}}});
}

void drawCheckmarkCircleFill(QPainter& painter) {
    QPainterPath path; // the mark is a hole in the circle
    path.addEllipse(QPointF(8, 8), 6.9, 6.9);
    path.moveTo(5.43, 7.72);
    path.lineTo(7.1, 9.39);
    continueAlong(path, {11.1, 5.75}, 0.7529, 140.389, -180);
    path.lineTo(7.2, 11.61);
    continueAlong(path, {4.9187, 8.2687}, 0.75, -137.022, -175.957);
    path.closeSubpath();
    painter.fillPath(path, Qt::black);
}

void drawChevronRight(QPainter& painter) {
    drawLines(painter, {{{6, 3.5}, {10.5, 8}, {6, 12.5}}});
}

void drawDesktopComputer(QPainter& painter) {
    painter.drawRoundedRect(QRectF(1.5, 2.5, 13, 8.5), 1.5, 1.5);
    drawLines(painter, {{{8, 11}, {8, 13.5}}, {{5, 13.5}, {11, 13.5}}});
}

void drawGlobe(QPainter& painter) {
    drawRing(painter);
    painter.drawEllipse(QPointF(8, 8), 2.75, 6.25);
    drawLines(painter, {{{1.75, 8}, {14.25, 8}}});
}

void drawKey(QPainter& painter) {
    painter.drawEllipse(QPointF(10.6, 5.4), 3.4, 3.4);
    drawLines(painter, {{{8.2, 7.8}, {2.5, 13.5}, {4.6, 13.5}}, {{5, 11}, {6.9, 12.9}}});
}

void drawNetworkSlash(QPainter& painter) {
    drawLines(painter, {{{1.5, 1.5}, {14.5, 14.5}},
                        {{8.5, 2.5}, {9.75, 6.25}, {13.5, 7.5}},
                        {{2.5, 8.5}, {6.25, 9.75}, {7.5, 13.5}}});
    fillCircles(painter, 1.5, {{8.5, 2.5}, {13.5, 7.5}, {2.5, 8.5}, {7.5, 13.5}});
}

void drawNetwork(QPainter& painter) {
    drawLines(painter, {{{9.99, 9.15}, {11.9, 10.25}},
                        {{8, 10.3}, {8, 12.5}},
                        {{6.01, 9.15}, {4.1, 10.25}},
                        {{6.01, 6.85}, {4.1, 5.75}},
                        {{8, 5.7}, {8, 3.5}},
                        {{9.99, 6.85}, {11.9, 5.75}}});
    fillCircles(painter, 2.3, {{8, 8}});
    fillCircles(painter, 1.5, {{13.2, 11}, {8, 14}, {2.8, 11}, {2.8, 5}, {8, 2}, {13.2, 5}});
}

void drawTrash(QPainter& painter) {
    QPainterPath handle({5.75, 4.25});
    continueAlong(handle, {6.75, 3}, 1, 180, -90);
    continueAlong(handle, {9.25, 3}, 1, 90, -90);
    handle.lineTo(10.25, 4.25);
    painter.drawPath(handle);
    QPainterPath can({3.9, 4.25});
    continueAlong(can, {5.7961, 12.7}, 1.3, -175.589, 85.758);
    continueAlong(can, {10.2039, 12.7}, 1.3, -90.17, 85.758);
    can.lineTo(12.1, 4.25);
    painter.drawPath(can);
    drawLines(painter,
              {{{2.5, 4.25}, {13.5, 4.25}}, {{6.6, 7}, {6.8, 11.25}}, {{9.4, 7}, {9.2, 11.25}}});
}

void drawXmarkCircle(QPainter& painter) {
    drawRing(painter);
    drawLines(painter, {{{5.75, 5.75}, {10.25, 10.25}}, {{10.25, 5.75}, {5.75, 10.25}}});
}

struct SymbolDrawing {
    QStringView name;
    void (*draw)(QPainter&);
    double line = usualLine;
};

constexpr std::array<SymbolDrawing, 13> drawings{{
    {u"arrow.clockwise", drawArrowClockwise},
    {u"arrow.down.circle", drawArrowDownCircle},
    {u"arrow.left.arrow.right", drawArrowLeftArrowRight},
    {u"checkmark.circle.fill", drawCheckmarkCircleFill},
    {u"chevron.right", drawChevronRight, heavyLine},
    {u"circle", drawRing},
    {u"desktopcomputer", drawDesktopComputer},
    {u"globe", drawGlobe},
    {u"key", drawKey},
    {u"network", drawNetwork},
    {u"network.slash", drawNetworkSlash},
    {u"trash", drawTrash},
    {u"xmark.circle", drawXmarkCircle},
}};

/// Draws it in black; false for an unknown name.
bool drawSymbol(QPainter& painter, const QString& name) {
    for (const SymbolDrawing& drawing : drawings) {
        if (drawing.name != name)
            continue;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, drawing.line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        drawing.draw(painter);
        return true;
    }
    return false;
}

QPixmap renderedSymbol(const QString& name, int size, const QColor& color, qreal ratio) {
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.scale(pixmap.width() / drawingSize, pixmap.height() / drawingSize);
    if (!drawSymbol(painter, name))
        return {};
    painter.resetTransform();
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

} // namespace

QPixmap symbolPixmap(const QString& name, int size, const QColor& color, qreal devicePixelRatio) {
    const QString key =
        u"symbol/%1/%2/%3/%4"_s.arg(name, QString::number(size), color.name(QColor::HexArgb),
                                    QString::number(devicePixelRatio));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = renderedSymbol(name, size, color, devicePixelRatio);
        if (!pixmap.isNull())
            QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

void paintSymbol(QPainter& painter, const QRectF& frame, const QString& name, int size,
                 const QColor& color) {
    const QPixmap pixmap = symbolPixmap(name, size, color, painter.device()->devicePixelRatioF());
    // A symbol between two pixels would be blurred.
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QPointF corner = frame.center() - QPointF(size, size) / 2;
    painter.drawPixmap(QPointF(qRound(corner.x() * ratio), qRound(corner.y() * ratio)) / ratio,
                       pixmap);
}

void paintDirectedSymbol(QPainter& painter, const QRectF& frame, const QString& name, int size,
                         const QColor& color, Qt::LayoutDirection direction) {
    if (direction == Qt::LeftToRight) {
        paintSymbol(painter, frame, name, size, color);
        return;
    }
    painter.save();
    painter.translate(2 * frame.center().x(), 0);
    painter.scale(-1, 1);
    paintSymbol(painter, frame, name, size, color);
    painter.restore();
}

} // namespace tarnwick
