// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tarnwick {

/// Computes where the panel opens, in device-independent pixels of the virtual desktop.
struct PanelPlacement {
    QRect icon;      ///< The icon, or its assumed place; may lie outside of the work area.
    QRect screen;    ///< The whole screen that the icon is on.
    QRect available; ///< That screen's work area.

    enum class Edge { Top, Bottom, Left, Right };

    /// The edge of the screen that holds the status area.
    Edge edge() const;

    /// The greatest height that a panel can have without covering the icon.
    int roomForPanel() const;

    /// The panel's top left corner: beside the icon, away from the edge, within the work area.
    /// Covers the icon only when no other place is left.
    QPoint position(const QSize& panel) const;
};

/// The assumed place of an icon whose real one the status area does not report: the cursor when it
/// is on that screen, as it has just clicked the icon; else the corner where icons usually are.
QRect assumedIcon(const QPoint& cursor, const QRect& screen, const QRect& available);

} // namespace tarnwick
