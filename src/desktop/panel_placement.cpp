// SPDX-License-Identifier: MIT
#include "desktop/panel_placement.h"

#include <QPointF>

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

const ScreenArea* screenAt(const QPoint& point, const QList<ScreenArea>& screens) {
    const auto found = std::find_if(screens.begin(), screens.end(), [&](const ScreenArea& screen) {
        return screen.geometry.contains(point);
    });
    return found == screens.end() ? nullptr : &*found;
}

/// Whether the point is on a screen, but where a bar has reserved room.
bool isInBar(const QPoint& point, const QList<ScreenArea>& screens) {
    const ScreenArea* screen = screenAt(point, screens);
    return screen != nullptr && !screen->available.contains(point);
}

std::optional<QPoint> fromDevicePixels(const QPoint& point, const QList<ScreenArea>& screens) {
    for (const ScreenArea& screen : screens) {
        const QRect& whole = screen.geometry;
        const QPointF inside = (QPointF(point) - whole.topLeft()) / screen.scale; // cannot overflow
        if (inside.x() >= 0 && inside.x() < whole.width() && inside.y() >= 0 &&
            inside.y() < whole.height())
            return whole.topLeft() +
                   QPoint(static_cast<int>(inside.x()), static_cast<int>(inside.y()));
    }
    return std::nullopt;
}

/// The end of the bar at which status areas usually are. Of several bars the highest counts.
QRect usualIcon(const ScreenArea& screen) {
    const QRect& whole = screen.geometry;
    QRect icon(0, 0, usualIconSize, usualIconSize);
    const bool hasTopBar = screen.available.top() > whole.top();
    const bool hasBottomBar = screen.available.bottom() < whole.bottom();
    const bool hasLeftBar = screen.available.left() > whole.left();
    const bool hasRightBar = screen.available.right() < whole.right();
    if (hasTopBar || !(hasBottomBar || hasLeftBar || hasRightBar))
        icon.moveTopRight(whole.topRight());
    else if (hasBottomBar || !hasLeftBar)
        icon.moveBottomRight(whole.bottomRight());
    else
        icon.moveBottomLeft(whole.bottomLeft());
    return icon;
}

/// The first screen with a bar, or else the primary one.
const ScreenArea& usualScreen(const QList<ScreenArea>& screens) {
    const auto found = std::find_if(screens.begin(), screens.end(), [](const ScreenArea& screen) {
        return screen.available != screen.geometry;
    });
    return found == screens.end() ? screens.first() : *found;
}

} // namespace

std::optional<QPoint> clickedPoint(const QPoint& reported, const QList<ScreenArea>& screens,
                                   const std::optional<QPoint>& pointer) {
    if (reported.isNull()) // what hosts send for a key, or when they do not know
        return std::nullopt;
    const std::optional<QPoint> converted = fromDevicePixels(reported, screens);
    if (screenAt(reported, screens) == nullptr)
        return converted;
    if (!converted)
        return reported;
    const bool isReportedInBar = isInBar(reported, screens);
    if (isInBar(*converted, screens) != isReportedInBar)
        return isReportedInBar ? reported : *converted;
    const auto distance = [&](const QPoint& point) {
        return (point - *pointer).manhattanLength();
    };
    return pointer && distance(reported) < distance(*converted) ? reported : *converted;
}

PanelPlacement PanelPlacement::beside(const IconPlace& place, const QList<ScreenArea>& screens) {
    if (place.rect) {
        const ScreenArea* screen = screenAt(place.rect->center(), screens);
        if (screen == nullptr)
            screen = &screens.first();
        return {*place.rect, screen->geometry, screen->available};
    }
    std::optional<QPoint> point;
    if (place.click)
        point = clickedPoint(*place.click, screens, place.pointer);
    if (!point)
        point = place.pointer;
    if (const ScreenArea* screen = point ? screenAt(*point, screens) : nullptr) {
        QRect icon(0, 0, usualIconSize, usualIconSize);
        icon.moveCenter(*point);
        return {icon, screen->geometry, screen->available};
    }
    const ScreenArea& screen = usualScreen(screens);
    return {usualIcon(screen), screen.geometry, screen.available};
}

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

} // namespace tarnwick
