// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/appearance.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tarnwick {

/// Follows the desktop's appearance where Qt does not. Main thread, which it does not block.
class AppearanceMonitor : public QObject {
    Q_OBJECT

public:
    AppearanceMonitor();
    ~AppearanceMonitor() override;
    AppearanceMonitor(const AppearanceMonitor&) = delete;
    AppearanceMonitor& operator=(const AppearanceMonitor&) = delete;

    /// As last reported: a desktop that stops reporting has not changed its looks by that.
    const Appearance& appearance() const { return appearance_; }

    /// Calls `action` when the appearance is known: now if it is, and after a fifth of a second at
    /// the latest, from when on nothing waits for it any more.
    void whenSettled(const std::function<void()>& action);

Q_SIGNALS:
    void changed();

    /// The desktop has answered, or is not worth waiting for. Sent once. A changed() that follows
    /// from the same answer comes first.
    void settled();

private:
    class Watch;

    void settle();
    void setAppearance(const Appearance& appearance);

    Appearance appearance_;
    bool isSettled_ = false;
    std::unique_ptr<Watch> watch_; ///< Null where Qt follows the desktop by itself.
};

} // namespace tarnwick
