// SPDX-License-Identifier: MIT
#include "references.h"

#include "comparison.h"

#include <QPainter>

#include <algorithm>
#include <set>
#include <utility>

namespace tarnwick::pictures {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostCompression = 0; // as Qt counts it for PNG

/// With a table of colours, if there are few enough, PNG takes less than half of the room.
QImage withColorTable(const QImage& cells) {
    constexpr std::size_t mostColors = 256;
    std::set<QRgb> colors;
    for (int y = 0; y < cells.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(cells.constScanLine(y));
        colors.insert(line, line + cells.width());
    }
    if (colors.size() > mostColors)
        return cells;
    return cells.convertToFormat(QImage::Format_Indexed8, {colors.begin(), colors.end()});
}

QString points(const QSize& cells) {
    return u"%1 x %2"_s.arg(cells.width() * cellSide).arg(cells.height() * cellSide);
}

QString sentence(const QList<Difference>& found, const QSize& cells, const QSize& reference) {
    const auto& [area, count, strongest] = found.first();
    QString text = u"differs at (%1, %2) in %3 points: %4 cells, by up to %5 of 255"_s.arg(
        QString::number(area.x()), QString::number(area.y()), points(area.size() / cellSide),
        QString::number(count), QString::number(strongest));
    if (found.size() > 1)
        text += u"; and in %1 smaller places"_s.arg(found.size() - 1);
    if (cells != reference) {
        text +=
            u"; it is %1 points large, the reference %2"_s.arg(points(cells), points(reference));
    }
    return text;
}

QImage framed(QImage picture, const QList<Difference>& found) {
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::magenta, 2));
    for (const Difference& difference : found)
        painter.drawRect(difference.area.adjusted(-2, -2, 2, 2));
    return picture;
}

} // namespace

References::References(const QDir& folder, QString fileEnding)
    : folder_(folder), fileEnding_(std::move(fileEnding)) {}

QImage References::reference(const QString& name) const {
    return QImage(folder_.filePath(name + fileEnding_));
}

QString References::compare(const QString& name, const QImage& picture, const QDir& results) {
    used_.append(name + fileEnding_);
    const QImage cells = cellsOf(picture);
    const QImage accepted = reference(name);
    const QList<Difference> found = differences(cells, accepted);
    if (found.isEmpty())
        return {};
    const auto leave = [&](const QString& kind, const QImage& image) {
        image.save(results.filePath(name + u'-' + kind + fileEnding_));
    };
    leave(u"drawn"_s, picture);
    leave(u"difference"_s, framed(picture, found));
    if (accepted.isNull())
        return u"has no reference"_s;
    leave(u"reference"_s, accepted.scaled(accepted.size() * picture.width() / cells.width()));
    return sentence(found, cells.size(), accepted.size());
}

bool References::accept(const QString& name, const QImage& picture) {
    used_.append(name + fileEnding_);
    const QImage cells = cellsOf(picture);
    return differences(cells, reference(name)).isEmpty() ||
           withColorTable(cells).save(folder_.filePath(name + fileEnding_), nullptr,
                                      mostCompression);
}

QStringList References::unused() const {
    QStringList files = folder_.entryList({u'*' + fileEnding_}, QDir::Files);
    files.removeIf([this](const QString& file) { return used_.contains(file); });
    return files;
}

bool References::removeUnused() {
    return std::ranges::all_of(unused(),
                               [this](const QString& file) { return folder_.remove(file); });
}

} // namespace tarnwick::pictures
