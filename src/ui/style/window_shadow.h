// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QPixmap>

class QPainter;
class QPalette;

namespace tarnwick {

/// The soft shadow of a window, drawn within margins of its own. Its picture is made when it is
/// first painted and kept until release().
class WindowShadow {
public:
    /// The room that the shadow takes around a window, in device-independent pixels.
    static constexpr QMargins margins{24, 20, 24, 28};

    /// Paints the shadow of a window that covers `body`.
    void paint(QPainter& painter, const QRect& body, const QPalette& palette);

    void release() { tile_ = {}; }

    bool isReleased() const { return tile_.isNull(); }

private:
    QPixmap tile_; ///< Four corners; what is between them is stretched.
    double strength_ = 0;
};

} // namespace tarnwick
