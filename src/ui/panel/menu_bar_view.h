// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"
#include "ui/controls/frameless_window.h"
#include "ui/controls/overlay_scroll_area.h"
#include "ui/panel/panel_column.h"
#include "ui/panel/panel_command.h"
#include "ui/panel/panel_content.h"

#include <QPointer>
#include <QTimer>

#include <memory>
#include <optional>

namespace tarnwick {

/// The panel under the tray icon: a frameless window, 300 wide and as high as its contents.
///
/// Reads the controller and changes nothing: what its controls ask for goes to `perform`. Renders
/// once per turn of the event loop at most, not while hidden, and not when what it shows stays the
/// same. Closes on Escape and when another window becomes active, unless that is one of its own
/// popovers.
class MenuBarView : public FramelessWindow {
    Q_OBJECT

public:
    static constexpr int panelWidth = 300; ///< Device-independent pixels.

    MenuBarView(std::shared_ptr<DaemonManager> daemon, PerformCommand perform,
                QWidget* parent = nullptr);
    ~MenuBarView() override;
    MenuBarView(const MenuBarView&) = delete;
    MenuBarView& operator=(const MenuBarView&) = delete;

    /// Size in which the panel would open now; its contents are brought up to date first.
    QSize panelSize();

    /// Contents beyond this height scroll. Set it to that of the work area before opening.
    void setMaximumPanelHeight(int height);

    /// Shows the panel with its corner there, and activates it. While open it grows and shrinks at
    /// its bottom, or at its top where it was opened at the bottom of the screen.
    void openAt(const QPoint& topLeft);

    /// Shows the panel as an ordinary window with a title bar, for where there is no icon to hang
    /// it under. It stays when another window becomes active.
    void openAsWindowAt(const QPoint& topLeft);

    /// How often the contents were rendered so far.
    int renderCount() const { return renderCount_; }

    void setVisible(bool visible) override;

Q_SIGNALS:
    /// The panel was hidden, for whatever reason.
    void closed();
    /// The panel closes because another window became active; comes before closed(). A click on
    /// the tray icon does this to an open panel before it arrives as a click.
    void dismissedByDeactivation();

protected:
    void escape() override;
    void deactivated() override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void openAs(Qt::WindowFlags newFlags, const QPoint& topLeft);
    bool isOrdinaryWindow() const;
    void scheduleRender();
    void renderScheduled();
    void render();
    void fitHeight();
    void scheduleActivationReview();
    void reviewActivation();
    bool ownsWindow(const QWidget* window) const;
    bool closeInnermostPopover();

    std::shared_ptr<DaemonManager> daemon_;
    OverlayScrollArea* scrollArea_;
    PanelColumn* column_;
    std::optional<PanelContent> shown_;
    QTimer activationReview_;
    QPointer<const QWidget> lastActive_; // of the panel and its popovers
    int maximumPanelHeight_ = QWIDGETSIZE_MAX;
    int renderCount_ = 0;
    bool isRenderScheduled_ = false;
    bool growsUpwards_ = false;
};

} // namespace tarnwick
