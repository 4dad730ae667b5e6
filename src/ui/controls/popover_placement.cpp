// SPDX-License-Identifier: MIT
#include "ui/controls/popover_placement.h"

#include <algorithm>

namespace tarnwick {

namespace {

int clampedStart(int start, int length, int first, int last) {
    return std::max(first, std::min(start, last + 1 - length));
}

} // namespace

PopoverPlacement PopoverPlacement::beside(const QRect& anchor, const QSize& content,
                                          const QRect& screen, Qt::LayoutDirection direction) {
    const int width = content.width() + arrowDepth;
    const int height = std::min(content.height(), screen.height());
    const int leftStart = anchor.left() - width;
    const int rightStart = anchor.right() + 1;
    const bool fitsLeft = leftStart >= screen.left();
    const bool fitsRight = rightStart + width - 1 <= screen.right();

    PopoverPlacement placement;
    const bool wantsLeft = direction == Qt::LeftToRight;
    const bool isLeft = wantsLeft ? fitsLeft || !fitsRight : fitsLeft && !fitsRight;
    placement.isArrowRight = isLeft;
    const int x =
        clampedStart(isLeft ? leftStart : rightStart, width, screen.left(), screen.right());
    const int y =
        clampedStart(anchor.center().y() - height / 2, height, screen.top(), screen.bottom());
    placement.window = QRect(x, y, width, height);
    const int margin = cornerRadius + arrowBase / 2;
    placement.arrowY = std::clamp(anchor.center().y() - y, std::min(margin, height / 2),
                                  std::max(height - margin, height / 2));
    return placement;
}

QRect PopoverPlacement::contentRect() const {
    const QRect whole(QPoint(0, 0), window.size());
    return isArrowRight ? whole.adjusted(0, 0, -arrowDepth, 0)
                        : whole.adjusted(arrowDepth, 0, 0, 0);
}

} // namespace tarnwick
