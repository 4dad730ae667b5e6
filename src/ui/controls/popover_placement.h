// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

namespace tarnwick {

/// Where a popover stands beside the row that opened it.
struct PopoverPlacement {
    static constexpr int arrowDepth = 9;
    static constexpr int arrowBase = 18;
    static constexpr int cornerRadius = 10;

    QRect window;             ///< In global coordinates, the arrow included.
    bool isArrowRight = true; ///< Whether the arrow is at the right side of the window.
    int arrowY = 0;           ///< Of the arrow's tip, in the window.

    bool operator==(const PopoverPlacement&) const = default;

    /// Beside `anchor` at its leading edge; on the other side where the screen ends; inside of
    /// `screen` in any case. All rectangles are global, `content` is the size without the arrow.
    static PopoverPlacement beside(const QRect& anchor, const QSize& content, const QRect& screen,
                                   Qt::LayoutDirection direction);

    /// The part of the window that holds the content, in the window.
    QRect contentRect() const;
};

} // namespace tarnwick
