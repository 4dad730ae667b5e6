// SPDX-License-Identifier: MIT
#include "ui/style/window_shadow.h"

#include "ui/style/colors.h"

#include <QImage>
#include <QPainter>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarnwick {

namespace {

constexpr double shadowSigma = 8; // of the blur, in device-independent pixels
constexpr int shadowSpread = 24;  // three sigma, where a shadow can no longer be seen
constexpr int shadowOffset = 4;   // downwards
constexpr double lightStrength = 0.5;
constexpr double darkStrength = 0.8;

/// How dense the shadow of a half-plane is at that distance inside of its edge, 0 to 1.
double shadowDensity(double distance) {
    return 0.5 * (1 + std::erf(distance / (shadowSigma * std::numbers::sqrt2)));
}

/// The shadow of a rectangle of the least size that has all four corners. A blurred rectangle is
/// the product of two blurred edges, so that nothing needs to be blurred here.
QPixmap shadowTile(double strength, qreal ratio) {
    const int corner = qRound(2 * shadowSpread * ratio);
    const int side = 2 * corner + 1;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const double down = shadowDensity((std::min(y, side - 1 - y) + 0.5) / ratio - shadowSpread);
        for (int x = 0; x < side; ++x) {
            const double across =
                shadowDensity((std::min(x, side - 1 - x) + 0.5) / ratio - shadowSpread);
            line[x] = qRgba(0, 0, 0, qRound(255 * strength * down * across));
        }
    }
    return QPixmap::fromImage(std::move(image));
}

} // namespace

void WindowShadow::paint(QPainter& painter, const QRect& body, const QPalette& palette) {
    const qreal ratio = painter.device()->devicePixelRatioF();
    const double strength = isDark(palette) ? darkStrength : lightStrength;
    const int side = 2 * qRound(2 * shadowSpread * ratio) + 1;
    if (tile_.width() != side || strength != strength_)
        tile_ = shadowTile(strength, ratio);
    strength_ = strength;
    const QRect target = body.translated(0, shadowOffset)
                             .adjusted(-shadowSpread, -shadowSpread, shadowSpread, shadowSpread);
    const int corner = std::min({2 * shadowSpread, target.width() / 2, target.height() / 2});
    const int source = std::min(qRound(corner * ratio), side / 2);
    qDrawBorderPixmap(&painter, target, {corner, corner, corner, corner}, tile_, tile_.rect(),
                      {source, source, source, source});
}

} // namespace tarnwick
