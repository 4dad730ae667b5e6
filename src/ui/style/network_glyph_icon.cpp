// SPDX-License-Identifier: MIT
#include "ui/style/network_glyph_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <array>
#include <numbers>

namespace tarnwick {

namespace {

// Lengths are fractions of the icon's width.
constexpr double hubRadius = 0.155;
constexpr double satelliteRadius = 0.088;
constexpr double orbit = 0.365;
constexpr double lineWidth = 0.05;
constexpr double outlineWidth = 0.045;

/// From the hub to each satellite. Constants, and lines filled as polygons, because trigonometry
/// and pens would load a quarter of a megabyte of tables and code at every start.
constexpr double sixtyDegreesAside = std::numbers::sqrt3 / 2;
constexpr std::array<QPointF, 6> directions = {{{0, -1},
                                                {sixtyDegreesAside, -0.5},
                                                {sixtyDegreesAside, 0.5},
                                                {0, 1},
                                                {-sixtyDegreesAside, 0.5},
                                                {-sixtyDegreesAside, -0.5}}};

void paintGlyph(QPainter& painter, double size, double margin, const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const double halfLine = (lineWidth / 2 + margin) * size;
    for (const QPointF& direction : directions) {
        const QPointF satellite = direction * orbit * size;
        const QPointF side = QPointF(-direction.y(), direction.x()) * halfLine;
        const QPointF line[] = {side, satellite + side, satellite - side, -side};
        painter.drawConvexPolygon(line, 4);
        const double radius = (satelliteRadius + margin) * size;
        painter.drawEllipse(satellite, radius, radius);
    }
    const double radius = (hubRadius + margin) * size;
    painter.drawEllipse(QPointF(0, 0), radius, radius);
}

class NetworkGlyphEngine : public QIconEngine {
public:
    explicit NetworkGlyphEngine(QString themeName) : themeName_(std::move(themeName)) {}

    QString iconName() override { return themeName_; }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center());
        const double size = std::min(rect.width(), rect.height());
        paintGlyph(*painter, size, outlineWidth, QColor(0x2b, 0x2f, 0x36));
        paintGlyph(*painter, size, 0, QColor(0xe6, 0xe8, 0xeb));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    // A status-notifier icon is sent in these sizes.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return {{16, 16}, {22, 22}, {24, 24}, {32, 32}, {48, 48}, {64, 64}};
    }

    QIconEngine* clone() const override { return new NetworkGlyphEngine(*this); }

private:
    QString themeName_;
};

} // namespace

QIcon networkGlyphIcon(const QString& themeName) {
    return QIcon(new NetworkGlyphEngine(themeName));
}

} // namespace tarnwick
