// SPDX-License-Identifier: MIT
#include "desktop/appearance_monitor.h"

#include <QTimer>

#include <chrono>
#include <utility>

namespace tarnwick {

void AppearanceMonitor::whenSettled(const std::function<void()>& action) {
    constexpr std::chrono::milliseconds longestWait{200};
    if (isSettled_) {
        action();
        return;
    }
    QObject::connect(this, &AppearanceMonitor::settled, this, action, Qt::SingleShotConnection);
    QTimer::singleShot(longestWait, this, &AppearanceMonitor::settle);
}

void AppearanceMonitor::settle() {
    if (!std::exchange(isSettled_, true))
        Q_EMIT settled();
}

void AppearanceMonitor::setAppearance(const Appearance& appearance) {
    if (appearance == appearance_)
        return;
    appearance_ = appearance;
    Q_EMIT changed();
}

} // namespace tarnwick
