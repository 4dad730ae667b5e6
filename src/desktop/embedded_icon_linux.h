// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/status_area.h"

#include <QIcon>
#include <QRasterWindow>
#include <QTimer>

#include <functional>
#include <optional>

namespace tarnwick {

class X11Tray;

/// The program's icon as a window that the X tray embeds. Qt's own icon would go to a
/// status-notifier host wherever there is one.
///
/// A tray that goes leaves it without a place: for the next tray another one is made.
class EmbeddedIcon : public QRasterWindow {
public:
    using Clicked = std::function<void(const IconClick& click)>;

    /// Asks the tray that there is now to embed it. Every button calls `clicked`.
    EmbeddedIcon(X11Tray& tray, QIcon picture, Clicked clicked);

    /// Where the tray shows it, in device-independent pixels; none before it does.
    std::optional<QRect> geometryInTray() const;

    /// Sets what the tooltip says besides the program's name.
    void setStatusLabel(const QString& label);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const QIcon picture_;
    const Clicked clicked_;
    QTimer toolTipDelay_; ///< Runs while the pointer rests on the icon.
};

} // namespace tarnwick
