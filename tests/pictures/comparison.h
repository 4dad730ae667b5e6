// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QRect>

namespace tarnwick::pictures {

constexpr int cellSide = 2; ///< Of the cells in which pictures are compared, in points.

/// The picture reduced to cells, each of the mean colour of its pixels in 64 steps a channel: what
/// versions of Qt and FreeType do to the edges of letters is lost, what an eye would notice is not.
QImage cellsOf(const QImage& picture);

/// Neighbouring cells that differ.
struct Difference {
    QRect area; ///< In points.
    int cells = 0;
    int strongest = 0; ///< Of any colour channel, 0 to 255.
};

/// Where two pictures in cells differ visibly, the largest difference first.
QList<Difference> differences(const QImage& cells, const QImage& reference);

} // namespace tarnwick::pictures
