// SPDX-License-Identifier: MIT
#include "comparison.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <utility>

namespace tarnwick::pictures {

namespace {

/// A hairline on the panel's background changes its cells by 12, rounding changes them by 4.
constexpr int visibleDifference = 8;

/// Fewer neighbours than a chevron or half a letter are the work of another version of a library.
constexpr int visibleCells = 4;

int distance(QRgb one, QRgb other) {
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

/// How much each cell differs. A cell that only one picture has differs as much as can be.
class DistanceMap {
public:
    DistanceMap(const QImage& one, const QImage& other)
        : size_(one.size().expandedTo(other.size())),
          distances_(qsizetype(size_.width()) * size_.height()) {
        for (int y = 0; y < size_.height(); ++y) {
            for (int x = 0; x < size_.width(); ++x) {
                const bool isInBoth = one.valid(x, y) && other.valid(x, y);
                at({x, y}) = isInBoth ? distance(one.pixel(x, y), other.pixel(x, y)) : 255;
            }
        }
    }

    QSize size() const { return size_; }

    /// Removes the cell that differs there, and those that are connected with it.
    Difference takeFrom(const QPoint& start) {
        Difference found;
        QList<QPoint> reached{start};
        while (!reached.isEmpty()) {
            const QPoint cell = reached.takeLast();
            if (!differs(cell))
                continue;
            found.area |= QRect(cell * cellSide, QSize(cellSide, cellSide));
            found.strongest = std::max(found.strongest, std::exchange(at(cell), 0));
            ++found.cells;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx)
                    reached.append(cell + QPoint(dx, dy));
        }
        return found;
    }

private:
    bool differs(const QPoint& cell) {
        return QRect(QPoint(), size_).contains(cell) && at(cell) >= visibleDifference;
    }

    int& at(const QPoint& cell) {
        return distances_[qsizetype(cell.y()) * size_.width() + cell.x()];
    }

    QSize size_;
    QList<int> distances_;
};

} // namespace

QImage cellsOf(const QImage& picture) {
    const int pixels = qRound(cellSide * picture.devicePixelRatio());
    const QSize cells(picture.width() / pixels, picture.height() / pixels);
    QImage reduced = picture.copy(QRect(QPoint(), cells * pixels))
                         .scaled(cells, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                         .convertToFormat(QImage::Format_RGB32);
    reduced.setDevicePixelRatio(1);
    constexpr QRgb steps = 0xfffcfcfc;
    for (int y = 0; y < reduced.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(reduced.scanLine(y));
        std::transform(line, line + reduced.width(), line,
                       [](QRgb color) { return color & steps; });
    }
    return reduced;
}

QList<Difference> differences(const QImage& cells, const QImage& reference) {
    DistanceMap distances(cells, reference);
    QList<Difference> found;
    for (int y = 0; y < distances.size().height(); ++y) {
        for (int x = 0; x < distances.size().width(); ++x) {
            const Difference difference = distances.takeFrom({x, y});
            if (difference.cells >= visibleCells)
                found.append(difference);
        }
    }
    std::ranges::sort(found, std::greater(), &Difference::cells);
    return found;
}

} // namespace tarnwick::pictures
