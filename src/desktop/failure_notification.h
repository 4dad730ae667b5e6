// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace tarnwick {

/// The desktop's notification that a command of the user's has failed: at most one at a time. Main
/// thread, which it never blocks; where the desktop has no notifications nothing is shown.
class FailureNotification {
public:
    /// Shows a text at the program's icon, for systems where that is what notifies.
    using ShowAtIcon = std::function<void(const QString& text)>;

    explicit FailureNotification(ShowAtIcon showAtIcon = {});
    ~FailureNotification();
    FailureNotification(const FailureNotification&) = delete;
    FailureNotification& operator=(const FailureNotification&) = delete;

    /// Shows this plain text in place of an earlier one.
    void show(const QString& text);

    /// Takes the notification away, if there is one.
    void withdraw();

private:
    class Service;
    ShowAtIcon showAtIcon_;
    std::unique_ptr<Service> service_; ///< Null until something has failed.
};

} // namespace tarnwick
