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

/// The panel under the tray icon: a frameless window of fixed width, as high as its contents.
///
/// Renders the controller's state, though not while hidden and only if the content differs; the
/// controls' commands go to `perform`. Closes on Escape and when a window other than its popovers
/// becomes active.
class MenuBarView : public FramelessWindow {
    Q_OBJECT

public:
    static constexpr int panelWidth = 300; ///< Device-independent pixels.

    MenuBarView(std::shared_ptr<DaemonManager> daemon, PerformCommand perform,
                QWidget* parent = nullptr);
    ~MenuBarView() override;
    MenuBarView(const MenuBarView&) = delete;
    MenuBarView& operator=(const MenuBarView&) = delete;

    /// Updates the contents and returns the size in which the panel would open.
    QSize panelSize();

    /// Contents beyond this height scroll. To be set to the height of the work area.
    void setMaximumPanelHeight(int height);

    /// Shows and activates the panel. Opened in the lower half of the screen it grows upwards.
    void openAt(const QPoint& topLeft);

    /// Shows the panel as an ordinary window with a title bar, for systems without an icon to open
    /// it from. It stays open when another window becomes active.
    void openAsWindowAt(const QPoint& topLeft);

    /// Number of renderings so far.
    int renderCount() const { return renderCount_; }

    void setVisible(bool visible) override;

Q_SIGNALS:
    /// The panel was hidden, for any reason.
    void closed();
    /// Another window became active; emitted before closed(). A click on the tray icon causes this
    /// before it arrives as a click.
    void dismissedByDeactivation();

protected:
    void escape() override;
    void deactivated() override;
    bool event(QEvent* event) override;
    void shadowMarginsChanged() override;
    int roomAbove(const QRect& geometry) const override;
    void visibleRectChanged() override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void openAs(Qt::WindowFlags newFlags, const QPoint& topLeft);
    bool isOrdinaryWindow() const;
    void renderIfVisible();
    void render();
    int fittingHeight() const;
    void fitHeight();
    void setPlace(const QRect& geometry);
    void scheduleActivationReview();
    void reviewActivation();
    bool ownsWindow(const QWidget* window) const;
    bool closeInnermostPopover();

    std::shared_ptr<DaemonManager> daemon_;
    OverlayScrollArea* scrollArea_;
    PanelColumn* column_;
    std::optional<PanelContent> shown_;
    QTimer activationReview_;
    QPointer<const QWidget> lastActive_; ///< Of the panel and its popovers.
    bool wasActiveSinceOpened_ = false;  ///< It, or a popover of its.
    int maximumPanelHeight_ = QWIDGETSIZE_MAX;
    int renderCount_ = 0;
    bool growsUpwards_ = false;
};

} // namespace tarnwick
