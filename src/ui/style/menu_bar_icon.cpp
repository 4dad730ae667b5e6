// SPDX-License-Identifier: MIT
#include "ui/style/menu_bar_icon.h"

#include "ui/style/symbol.h"

#include <QBuffer>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>

#include <array>
#include <numbers>

namespace tarnwick {

using namespace Qt::StringLiterals;

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

constexpr QSize displaySize{18, 18};

/// The bytes that `text` encodes, empty if it is not base64.
QByteArray decodedText(const QByteArray& text) {
    const auto bytes =
        QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
    return bytes ? bytes.decoded : QByteArray();
}

/// Whether a file begins and ends as a PNG does; its pixels may still be corrupt.
bool isWholePng(const QByteArray& file) {
    return file.startsWith("\x89PNG\r\n\x1a\n") && file.endsWith("IEND\xae\x42\x60\x82");
}

QPixmap decodedPicture(QByteArray file) {
    QBuffer buffer(&file);
    QImageReader reader(&buffer, "png");
    // Detecting the format would load every image plug-in.
    reader.setAutoDetectImageFormat(false);
    const QImage image = reader.read();
    if (image.isNull())
        return {};
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(static_cast<qreal>(image.width()) / displaySize.width());
    return pixmap;
}

/// The name of our symbolic icon if it is installed, else "". Looks only where packages install it,
/// since QIcon would read the whole icon theme.
QString installedThemeIcon() {
    const QString name = u"tarnwick-client-symbolic"_s;
    const QString file = u"icons/hicolor/symbolic/apps/"_s + name + u".svg"_s;
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty() ? QString()
                                                                                       : name;
}

QIcon networkSymbol() {
    // Visible on dark and on light panels if nothing tints it.
    const QColor color(0x88, 0x88, 0x88);
    QIcon icon;
    for (const int size : {18, 22, 24, 36, 48})
        icon.addPixmap(symbolPixmap(u"network"_s, size, color, 1));
    icon.setIsMask(true);
    return icon;
}

} // namespace

QIcon networkGlyphIcon(const QString& themeName) {
    return QIcon(new NetworkGlyphEngine(themeName));
}

MenuBarIcon MenuBarIcon::make(const Platform& platform, const QByteArray& text) {
    const QByteArray file = decodedText(text);
    if (platform.templateIcon) {
        if (const QPixmap picture = decodedPicture(file); !picture.isNull()) {
            QIcon icon(picture);
            icon.setIsMask(true);
            return {icon, displaySize, true, {}};
        }
    } else if (isWholePng(file)) {
        // Nothing tints the picture here, and its light grey would vanish on a light panel: an
        // outlined glyph is drawn instead.
        return {networkGlyphIcon(installedThemeIcon()), displaySize, false, {}};
    }
    const QIcon symbol = networkSymbol();
    if (symbol.isNull())
        qFatal("Unexpectedly found nil while unwrapping an Optional value");
    return {symbol, {}, platform.templateIcon, u"Tarnwick Network"_s};
}

} // namespace tarnwick
