// SPDX-License-Identifier: MIT
#include "desktop/panel_placement.h"

#include <algorithm>
#include <array>

namespace tarnwick {

namespace {

constexpr int usualIconSize = 24;

/// Like std::clamp, but defined for a panel larger than the area too: it starts where that does.
int clamped(int wanted, int low, int high) {
    return std::max(low, std::min(wanted, high));
}

QPoint clampedInto(const QRect& area, const QPoint& wanted, const QSize& size) {
    return {clamped(wanted.x(), area.left(), area.left() + area.width() - size.width()),
            clamped(wanted.y(), area.top(), area.top() + area.height() - size.height())};
}

} // namespace

PanelPlacement::Edge PanelPlacement::edge() const {
    const QPoint centre = icon.center();
    if (centre.y() < available.top())
        return Edge::Top;
    if (centre.y() > available.bottom())
        return Edge::Bottom;
    if (centre.x() < available.left())
        return Edge::Left;
    if (centre.x() > available.right())
        return Edge::Right;
    // The status area reserves no room: take the nearest edge, and in a corner the horizontal one.
    const int inCorner = icon.height();
    const std::array<std::pair<int, Edge>, 4> distances{
        {{centre.y() - screen.top() - inCorner, Edge::Top},
         {screen.bottom() - centre.y() - inCorner, Edge::Bottom},
         {centre.x() - screen.left(), Edge::Left},
         {screen.right() - centre.x(), Edge::Right}}};
    return std::min_element(distances.begin(), distances.end(),
                            [](const auto& a, const auto& b) { return a.first < b.first; })
        ->second;
}

int PanelPlacement::roomForPanel() const {
    const QRect area = available & screen;
    switch (edge()) {
    case Edge::Top:
        return area.bottom() - std::max(icon.bottom(), area.top() - 1);
    case Edge::Bottom:
        return std::min(icon.top(), area.bottom() + 1) - area.top();
    case Edge::Left:
    case Edge::Right:
        break;
    }
    return area.height();
}

QPoint PanelPlacement::position(const QSize& panel) const {
    const QRect area = available & screen;
    const int centredX = icon.center().x() - panel.width() / 2;
    const int centredY = icon.center().y() - panel.height() / 2;
    const QPoint below(centredX, std::max(icon.bottom() + 1, area.top()));
    const QPoint above(centredX, std::min(icon.top(), area.bottom() + 1) - panel.height());
    const QPoint after(std::max(icon.right() + 1, area.left()), centredY);
    const QPoint before(std::min(icon.left(), area.right() + 1) - panel.width(), centredY);

    std::array<QPoint, 4> wishes{below, above, before, after};
    switch (edge()) {
    case Edge::Top:
        break;
    case Edge::Bottom:
        wishes = {above, below, before, after};
        break;
    case Edge::Left:
        wishes = {after, below, above, before};
        break;
    case Edge::Right:
        wishes = {before, below, above, after};
        break;
    }
    for (const QPoint& wish : wishes) {
        const QRect place(clampedInto(area, wish, panel), panel);
        if (area.contains(place) && !place.intersects(icon))
            return place.topLeft();
    }
    return clampedInto(area, wishes.front(), panel);
}

QRect assumedIcon(const QPoint& cursor, const QRect& screen, const QRect& available) {
    QRect icon(0, 0, usualIconSize, usualIconSize);
    if (screen.contains(cursor)) {
        icon.moveCenter(cursor);
    } else if (available.bottom() < screen.bottom() && available.top() == screen.top()) {
        icon.moveBottomRight(screen.bottomRight());
    } else {
        icon.moveTopRight(screen.topRight());
    }
    return icon;
}

} // namespace tarnwick
