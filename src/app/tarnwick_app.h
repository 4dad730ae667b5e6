// SPDX-License-Identifier: MIT
#pragma once

#include "app/panel_presenter.h"
#include "daemon/daemon_manager.h"
#include "desktop/appearance_monitor.h"
#include "desktop/failure_notification.h"
#include "desktop/single_instance.h"
#include "desktop/status_area.h"
#include "desktop/termination_signals.h"
#include "desktop/wake_up.h"
#include "ui/controls/keyboard.h"
#include "ui/style/appearance_style.h"
#include "ui/windows/auth_key_window.h"
#include "update/update_service.h"

#include <QPointer>

#include <memory>
#include <optional>

namespace tarnwick {

class UpdateAlert;

/// How the program was started.
struct Launch {
    bool isQuiet = true; ///< Else the panel opens by itself where there is no icon to click.
    QByteArray activationToken = {};
};

/// Composition root: creates the controller, the icon and the windows, and connects them.
class TarnwickApp : public QObject {
    Q_OBJECT

public:
    /// Starts polling the daemon and waits for a status area. Second launches connect to
    /// `launchSocket`. Main thread, with a QApplication.
    explicit TarnwickApp(const QString& launchSocket, DaemonManagerOptions options = {},
                         const std::optional<UpdateServiceOptions>& updateOptions = {},
                         Launch launch = {});
    ~TarnwickApp() override;
    TarnwickApp(const TarnwickApp&) = delete;
    TarnwickApp& operator=(const TarnwickApp&) = delete;

    /// The one controller of the process.
    const std::shared_ptr<DaemonManager>& daemon() const { return daemon_; }

    /// Carries out a command of the panel.
    void perform(const PanelCommand& command);

private:
    std::unique_ptr<MenuBarView> makePanel();
    void checkForUpdates();
    void showUpdateAlert(const UpdateCheckResult& result);
    void connectIcon();
    void completeLaunch(bool hasIcon);
    void openWithoutIcon(const QByteArray& activationToken);
    void showOnRequest(const QByteArray& activationToken);
    void showOutcome(const std::optional<QString>& failure);

    Launch launch_;
    const std::shared_ptr<DaemonManager> daemon_;
    const Platform platform_;
    TerminationSignals signals_;
    WakeUp wakeUp_;
    AppearanceMonitor appearance_;
    AppearanceStyle style_;
    HeldKeyFilter heldKeys_;
    SingleInstanceChannel launches_;
    AuthKeyWindow authKeyWindow_;
    UpdateService updates_;
    bool isCheckingForUpdates_ = false;
    QPointer<UpdateAlert> updateAlert_;
    PanelPresenter presenter_;
    StatusArea statusArea_;
    FailureNotification failureNotification_;
};

} // namespace tarnwick
