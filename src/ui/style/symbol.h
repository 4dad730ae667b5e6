// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QString>

class QPainter;
class QRectF;

namespace tarnwick {

/// The symbol of that name, such as "network.slash", as a square of `size` device-independent
/// pixels in one colour. Null when there is none of that name. Main thread.
QPixmap symbolPixmap(const QString& name, int size, const QColor& color, qreal devicePixelRatio);

/// Paints the symbol in the middle of `frame`, which it may exceed.
void paintSymbol(QPainter& painter, const QRectF& frame, const QString& name, int size,
                 const QColor& color);

/// As paintSymbol(), turned round where the layout runs from right to left: for what points along
/// the line.
void paintDirectedSymbol(QPainter& painter, const QRectF& frame, const QString& name, int size,
                         const QColor& color, Qt::LayoutDirection direction);

} // namespace tarnwick
