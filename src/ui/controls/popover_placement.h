// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

namespace tarnwick {

/// Where a popover opens beside its row.
struct PopoverPlacement {
    static constexpr int arrowDepth = 9;
    static constexpr int arrowBase = 18;
    static constexpr int cornerRadius = 10;

    QRect window;             ///< Global, including the arrow.
    bool isArrowRight = true; ///< On the window's right side, else on its left.
    int arrowY = 0;           ///< The arrow's tip, relative to the window.

    bool operator==(const PopoverPlacement&) const = default;

    /// At the leading edge of `anchor`, or at the other one if there is no room; always within
    /// `screen`. Rectangles are global; `content` is the size without the arrow.
    static PopoverPlacement beside(const QRect& anchor, const QSize& content, const QRect& screen,
                                   Qt::LayoutDirection direction);

    /// The content's part of the window, relative to the window.
    QRect contentRect() const;
};

} // namespace tarnwick
