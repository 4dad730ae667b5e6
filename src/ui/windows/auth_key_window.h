// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"
#include "platform/platform.h"
#include "ui/windows/floating_dialog.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

namespace tarnwick {

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
