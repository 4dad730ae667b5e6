// SPDX-License-Identifier: MIT
#include "desktop/appearance_monitor.h"

namespace tarnwick {

class AppearanceMonitor::Watch {};

AppearanceMonitor::AppearanceMonitor() {
    QMetaObject::invokeMethod(this, &AppearanceMonitor::settle, Qt::QueuedConnection);
}

AppearanceMonitor::~AppearanceMonitor() = default;

} // namespace tarnwick
