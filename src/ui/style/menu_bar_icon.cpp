// SPDX-License-Identifier: MIT
#include "ui/style/menu_bar_icon.h"

#include "ui/style/network_glyph_icon.h"
#include "ui/style/symbol.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixmap>
#include <QStandardPaths>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

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
