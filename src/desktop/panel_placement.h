// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace tarnwick {

/// One screen. Lengths without a unit are device-independent pixels of the virtual desktop.
struct ScreenArea {
    QRect geometry;
    QRect available; ///< The work area.
    double scale =
        1; ///< Device pixels for each device-independent one; both agree on the top left.
};

/// What is known of the icon's place. The first that is known and plausible counts.
struct IconPlace {
    std::optional<QRect> rect = {};
    std::optional<QPoint> click = {}; ///< As a status area reported it; see IconClick::point.
    std::optional<QPoint> pointer = {};
};

/// Where a click was that a status area reported in device pixels or in device-independent ones;
/// none if it cannot have been there. Of two possible places the one in a bar counts, then the one
/// nearer to the pointer, if that is known.
std::optional<QPoint> clickedPoint(const QPoint& reported, const QList<ScreenArea>& screens,
                                   const std::optional<QPoint>& pointer = {});

/// Computes where the panel opens, in device-independent pixels of the virtual desktop.
struct PanelPlacement {
    QRect icon;      ///< The icon, or its assumed place; may lie outside of the work area.
    QRect screen;    ///< The whole screen that the icon is on.
    QRect available; ///< That screen's work area.

    enum class Edge { Top, Bottom, Left, Right };

    /// `screens`: at least one, the primary one first.
    static PanelPlacement beside(const IconPlace& place, const QList<ScreenArea>& screens);

    /// The edge of the screen that holds the status area.
    Edge edge() const;

    /// The greatest height that a panel can have without covering the icon.
    int roomForPanel() const;

    /// The panel's top left corner: beside the icon, away from the edge, within the work area.
    /// Covers the icon only when no other place is left.
    QPoint position(const QSize& panel) const;
};

} // namespace tarnwick
