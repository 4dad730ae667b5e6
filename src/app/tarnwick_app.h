// SPDX-License-Identifier: MIT
#pragma once

#include "app/panel_presenter.h"
#include "daemon/daemon_manager.h"
#include "desktop/single_instance_channel.h"
#include "desktop/status_area.h"
#include "desktop/termination_signals.h"
#include "desktop/tray_icon.h"
#include "desktop/wake_up.h"
#include "ui/windows/auth_key_window.h"
#include "update/update_service.h"

#include <memory>
#include <optional>

namespace tarnwick {

/// The program while it runs: one controller, one icon, and what they open.
class TarnwickApp : public QObject {
    Q_OBJECT

public:
    /// Starts to poll the daemon and waits for a place for the icon. `launchSocket` is where second
    /// launches are listened for. Main thread, with a QApplication.
    explicit TarnwickApp(const QString& launchSocket, DaemonManagerOptions options = {});
    ~TarnwickApp() override;
    TarnwickApp(const TarnwickApp&) = delete;
    TarnwickApp& operator=(const TarnwickApp&) = delete;

    /// The one controller, whoever asks and however often.
    const std::shared_ptr<DaemonManager>& daemon() const { return daemon_; }

    /// Carries out what a control of the panel asks for.
    void perform(const PanelCommand& command);

private:
    std::unique_ptr<MenuBarView> makePanel();
    void checkForUpdates();
    void showIcon();
    void showOnRequest(const QByteArray& activationToken);
    std::optional<QRect> iconGeometry() const;

    const std::shared_ptr<DaemonManager> daemon_;
    const Platform platform_;
    TerminationSignals signals_;
    WakeUp wakeUp_;
    SingleInstanceChannel launches_;
    AuthKeyWindow authKeyWindow_;
    std::unique_ptr<UpdateService> updates_; ///< Null until the first check.
    PanelPresenter presenter_;
    StatusArea statusArea_;
    std::unique_ptr<TrayIcon> icon_; ///< Null until there is a status area.
};

} // namespace tarnwick
