// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>

class QWidget;

namespace tarnwick {

/// The ground of the panel's windows: a shape of its own in the palette's colour with a soft edge.
/// Where the screen is composited its corners are smooth; where not, they are cut out.
class PanelSurface {
public:
    /// Prepares a window that is not shown yet.
    explicit PanelSurface(QWidget* window);

    /// Takes over the window's new outline, in its coordinates.
    void setShape(const QPainterPath& shape);

    /// To be called when the window is about to be shown: a compositor may have come or gone.
    void prepareToShow();

    /// Paints the ground; from the window's paintEvent().
    void paint() const;

private:
    void applyMask();

    QWidget* window_;
    QPainterPath shape_;
    bool isComposited_ = true;
};

/// A rectangle with round corners.
QPainterPath roundedShape(const QRectF& rect);

/// A rectangle for a window that the system gives a frame.
QPainterPath squareShape(const QRectF& rect);

} // namespace tarnwick
