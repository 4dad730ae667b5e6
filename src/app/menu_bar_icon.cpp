// SPDX-License-Identifier: MIT
#include "app/menu_bar_icon.h"

#include "app/network_glyph_icon.h"

#include <QImage>
#include <QPixmap>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize displaySize{18, 18};

QPixmap decodedPicture(const QByteArray& text) {
    const auto bytes =
        QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
    const QImage image = bytes ? QImage::fromData(bytes.decoded) : QImage();
    if (image.isNull())
        return {};
    QPixmap pixmap = QPixmap::fromImage(image);
    pixmap.setDevicePixelRatio(static_cast<qreal>(image.width()) / displaySize.width());
    return pixmap;
}

} // namespace

MenuBarIcon MenuBarIcon::make(const Platform& platform, const QByteArray& text) {
    const QPixmap picture = decodedPicture(text);
    if (!picture.isNull() && platform.templateIcon) {
        QIcon icon(picture);
        icon.setIsMask(true);
        return {icon, displaySize, true, {}};
    }
    // Elsewhere nothing tints the picture, and light grey vanishes on a light panel.
    if (!picture.isNull())
        return {networkGlyphIcon(), displaySize, false, {}};
    return {QIcon(), {}, platform.templateIcon, u"Tarnwick Network"_s};
}

} // namespace tarnwick
