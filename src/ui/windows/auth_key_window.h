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

/// What the auth-key window needs besides the controller, with the real things as defaults.
struct AuthKeyWindowOptions {
    std::function<QString()> computerName = hostPlatform().computerName;
    std::chrono::milliseconds retryInterval{1000}; ///< Between two looks at the status.
};

/// Opens the window with the auth-key form, one at a time. Main thread.
class AuthKeyWindow {
public:
    explicit AuthKeyWindow(AuthKeyWindowOptions options = {});
    ~AuthKeyWindow(); ///< Closes the window.
    AuthKeyWindow(const AuthKeyWindow&) = delete;
    AuthKeyWindow& operator=(const AuthKeyWindow&) = delete;

    /// Opens a fresh window in the middle of the screen and brings it to the front. One that is
    /// open already is closed, with what was typed into it.
    void show(const std::shared_ptr<DaemonManager>& daemon);

    /// The window that was shown last, until its form has closed it; hidden when the user did.
    FloatingDialog* window() const { return window_->get(); }

private:
    struct DeleteLater {
        void operator()(FloatingDialog* window) const;
    };

    // A form may want to close its window when this is long gone, or when another has taken the
    // window's place, which it then closes.
    using Holder = std::unique_ptr<FloatingDialog, DeleteLater>;

    AuthKeyWindowOptions options_;
    std::shared_ptr<Holder> window_ = std::make_shared<Holder>();
};

} // namespace tarnwick
