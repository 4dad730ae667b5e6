// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/frameless_window.h"

#include <QRect>
#include <QSize>

namespace tarnwick {

/// Where a popover opens beside its row.
struct PopoverPlacement {
    static constexpr int arrowDepth = 9;
    static constexpr int arrowBase = 18;

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

    /// Body and arrow as one path, relative to the window.
    QPainterPath outline() const;
};

/// A small window with an arrow that points at its row, beside which it stays when either resizes.
///
/// Closes on Escape, on an outside click and when another window becomes active. A click on the row
/// is left to the row, which toggles the popover.
class Popover : public FramelessWindow {
    Q_OBJECT

public:
    /// Takes ownership of `content` and follows its size hint.
    Popover(QWidget* anchor, QWidget* content);

    void present();

    /// Hides the popover and activates the anchor's window again.
    void dismiss();

    const PopoverPlacement& placement() const { return placement_; }

Q_SIGNALS:
    /// The user closed it by other means than its row. Emitted before it is hidden.
    void dismissedByUser();

protected:
    void escape() override;
    void deactivated() override;
    void shadowMarginsChanged() override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();
    void placeContent();
    void reviewActivation();
    bool belongsToAnchor(const QObject* watched) const;
    bool isAboveAnchor(const QObject* watched) const;
    QWidget* anchor_;
    QWidget* content_;
    PopoverPlacement placement_;
};

} // namespace tarnwick
