// SPDX-License-Identifier: MIT
#include "ui/controls/panel_surface.h"

#include "desktop/compositing.h"
#include "ui/controls/popover_placement.h"
#include "ui/style/colors.h"

#include <QPainter>
#include <QRegion>
#include <QWidget>

namespace tarnwick {

PanelSurface::PanelSurface(QWidget* window) : window_(window) {
    window_->setAttribute(Qt::WA_TranslucentBackground);
}

void PanelSurface::setShape(const QPainterPath& shape) {
    if (shape == shape_)
        return;
    shape_ = shape;
    applyMask();
    window_->update();
}

void PanelSurface::prepareToShow() {
    isComposited_ = isScreenComposited();
    applyMask();
}

void PanelSurface::applyMask() {
    if (isComposited_)
        window_->clearMask();
    else
        window_->setMask(QRegion(shape_.toFillPolygon().toPolygon()));
}

void PanelSurface::paint() const {
    QPainter painter(window_);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isComposited_) // what the mask leaves of the corners has to be opaque
        painter.fillRect(window_->rect(), backgroundColor(window_->palette()));
    painter.fillPath(shape_, backgroundColor(window_->palette()));
    // Half of this line lies outside of the shape and is clipped away.
    painter.setClipPath(shape_);
    painter.strokePath(shape_, QPen(borderColor(window_->palette()), 2));
}

QPainterPath roundedShape(const QRectF& rect) {
    QPainterPath shape;
    shape.addRoundedRect(rect, PopoverPlacement::cornerRadius, PopoverPlacement::cornerRadius);
    return shape;
}

QPainterPath squareShape(const QRectF& rect) {
    QPainterPath shape;
    shape.addRect(rect);
    return shape;
}

} // namespace tarnwick
