// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"
#include "platform/platform.h"
#include "ui/windows/floating_dialog.h"

#include <QString>
#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>

class QLineEdit;
class QPushButton;

namespace tarnwick {

class ScrollingText;

/// What the auth-key form needs besides the controller.
struct AuthKeyViewOptions {
    QString computerName;                          ///< Cleaned, the initial device name.
    std::chrono::milliseconds retryInterval{1000}; ///< Between two status refreshes.
    std::function<void()> onClose;                 ///< Main thread; may delete the view.
};

/// The form that joins this machine to a network with a device name and an auth key.
///
/// Logs in, then refreshes the status until the machine is connected and closes itself. The
/// refreshes go on after the view is gone.
class AuthKeyView : public QWidget {
    Q_OBJECT

public:
    static constexpr QSize formSize{400,
                                    340}; ///< Device-independent pixels; higher with a larger font.

    AuthKeyView(std::shared_ptr<DaemonManager> daemon, AuthKeyViewOptions options,
                QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;

private:
    void layOut();
    void fitTexts();
    QLayout* makeField(const QString& label, const QString& placeholder, QLineEdit* field);
    QLayout* makeButtons();
    void connectToNetwork();
    void setConnecting(bool connecting);
    void render();

    std::shared_ptr<DaemonManager> daemon_;
    AuthKeyViewOptions options_;
    QLineEdit* deviceName_;
    QLineEdit* authKey_;
    ScrollingText* error_;
    QPushButton* cancelButton_;
    QPushButton* connectButton_;
    bool connecting_ = false;
};

/// Dependencies of the auth-key window, by default the real ones.
struct AuthKeyWindowOptions {
    std::function<QString()> computerName = hostPlatform().computerName;
    std::chrono::milliseconds retryInterval{1000}; ///< Between two status refreshes.
};

/// Opens the window with the auth-key form, at most one at a time. Main thread.
class AuthKeyWindow {
public:
    explicit AuthKeyWindow(AuthKeyWindowOptions options = {});
    ~AuthKeyWindow(); ///< Closes the window.
    AuthKeyWindow(const AuthKeyWindow&) = delete;
    AuthKeyWindow& operator=(const AuthKeyWindow&) = delete;

    /// Opens a window with an empty form in the middle of the screen and closes an older one.
    void show(const std::shared_ptr<DaemonManager>& daemon);

    /// The last window, null once its form has closed it; hidden if the user closed it.
    FloatingDialog* window() const { return window_->get(); }

private:
    struct DeleteLater {
        void operator()(FloatingDialog* window) const;
    };

    // Shared with the form, which may close its window after this object is gone, and closes the
    // newer window if there is one.
    using Holder = std::unique_ptr<FloatingDialog, DeleteLater>;

    AuthKeyWindowOptions options_;
    std::shared_ptr<Holder> window_ = std::make_shared<Holder>();
};

} // namespace tarnwick
