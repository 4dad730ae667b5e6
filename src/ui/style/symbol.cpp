// SPDX-License-Identifier: MIT
#include "ui/style/symbol.h"

#include "ui/style/symbol_drawings.h"

#include <QPainter>
#include <QPixmapCache>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QPixmap renderedSymbol(const QString& name, int size, const QColor& color, qreal ratio) {
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.save();
    painter.scale(pixmap.width() / symbolDrawingSize, pixmap.height() / symbolDrawingSize);
    if (!drawSymbol(painter, name))
        return {};
    painter.restore();
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
