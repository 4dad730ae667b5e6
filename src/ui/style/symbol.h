// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QString>

class QPainter;
class QRectF;

namespace tarnwick {

/// The symbol of that name, such as "network.slash", in one colour and a square of `size`
/// device-independent pixels. Null for an unknown name. Main thread.
QPixmap symbolPixmap(const QString& name, int size, const QColor& color, qreal devicePixelRatio);

/// Paints the symbol centred on `frame`, which it may exceed.
void paintSymbol(QPainter& painter, const QRectF& frame, const QString& name, int size,
                 const QColor& color);

/// As paintSymbol(), mirrored in right-to-left layouts, for symbols that point along the line.
void paintDirectedSymbol(QPainter& painter, const QRectF& frame, const QString& name, int size,
                         const QColor& color, Qt::LayoutDirection direction);

} // namespace tarnwick
