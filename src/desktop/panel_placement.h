// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tarnwick {

/// Where the panel opens, as arithmetic on device-independent pixels of the virtual desktop.
struct PanelPlacement {
    QRect icon;      ///< The icon, or what stands for it; may lie outside of the work area.
    QRect screen;    ///< The whole screen that the icon is on.
    QRect available; ///< What its docks and panels leave of that screen.

    enum class Edge { Top, Bottom, Left, Right };

    /// The edge of the screen that holds the status area.
    Edge edge() const;

    /// The greatest height that a panel can have without covering the icon.
    int roomForPanel() const;

    /// The panel's top left corner: beside the icon, away from the edge, within the work area. The
    /// icon is covered only when there is no place on the screen that leaves it free.
    QPoint position(const QSize& panel) const;
};

/// A stand-in for an icon whose place the status area does not tell: the cursor, when it is on
/// that screen, since it has just clicked the icon; else the corner where icons usually are.
QRect assumedIcon(const QPoint& cursor, const QRect& screen, const QRect& available);

} // namespace tarnwick
