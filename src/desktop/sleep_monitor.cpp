// SPDX-License-Identifier: MIT
#include "desktop/sleep_monitor.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

SleepMonitor::SleepMonitor(const QDBusConnection& systemBus)
    : QDBusAbstractInterface(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                             "org.freedesktop.login1.Manager", systemBus, nullptr) {}

} // namespace tarnwick
