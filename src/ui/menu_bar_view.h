// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"
#include "ui/panel_calls.h"

#include <QWidget>

#include <memory>

namespace tarnwick {

/// The panel under the tray icon: a frameless window, 300 wide and as high as its contents.
///
/// Reads the controller and changes nothing but through its calls. Renders once per turn of the
/// event loop at most, not while hidden, and not when what it shows stays the same. Closes on
/// Escape and when another window becomes active, unless that is one of its own popovers.
class MenuBarView : public QWidget {
    Q_OBJECT

public:
    static constexpr int panelWidth = 300; ///< Device-independent pixels.

    MenuBarView(std::shared_ptr<DaemonManager> daemon, PanelCalls calls, QWidget* parent = nullptr);
    ~MenuBarView() override;

    /// Size in which the panel would open now; its contents are brought up to date first.
    QSize panelSize();

    /// Contents beyond this height scroll. Set it to that of the work area before opening.
    void setMaximumPanelHeight(int height);

    /// Shows the panel with its corner there, and activates it.
    void openAt(const QPoint& topLeft);

    /// Shows the panel as an ordinary window with a title bar, for where there is no icon to hang
    /// it under. It stays when another window becomes active.
    void openAsWindowAt(const QPoint& topLeft);

    /// How often the contents were rendered so far.
    int renderCount() const { return renderCount_; }

Q_SIGNALS:
    /// The panel was hidden, for whatever reason.
    void closed();
    /// The panel closes because another window became active; comes before closed(). A click on
    /// the tray icon does this to an open panel before it arrives as a click.
    void dismissedByDeactivation();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void openAs(Qt::WindowFlags flags, const QPoint& topLeft);

    std::shared_ptr<DaemonManager> daemon_;
    PanelCalls calls_;
    int renderCount_ = 0;
};

} // namespace tarnwick
