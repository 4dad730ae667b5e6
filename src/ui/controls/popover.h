// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/frameless_window.h"
#include "ui/controls/popover_placement.h"

namespace tarnwick {

/// A small window with an arrow that points at the row it belongs to, and goes with it.
///
/// Stays beside its row while either changes its size. Closes on Escape, on a click elsewhere and
/// when another window becomes active, but not on a click at its row, which closes it by itself.
class Popover : public FramelessWindow {
    Q_OBJECT

public:
    /// Takes over `content`, whose size hint it follows.
    Popover(QWidget* anchor, QWidget* content);

    void present();

    /// Hides it and gives the keyboard back to the anchor's window.
    void dismiss();

    const PopoverPlacement& placement() const { return placement_; }

Q_SIGNALS:
    /// The user closed it by other means than its row. Comes before it is hidden.
    void dismissedByUser();

protected:
    void escape() override;
    void deactivated() override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();
    void reviewActivation();
    bool belongsToAnchor(const QObject* watched) const;
    bool isAboveAnchor(const QObject* watched) const;
    QPainterPath outline() const;

    QWidget* anchor_;
    QWidget* content_;
    PopoverPlacement placement_;
};

} // namespace tarnwick
