// SPDX-License-Identifier: MIT
#include "desktop/sleep_monitor.h"
#include "desktop/wake_up.h"

namespace tarnwick {

class WakeUp::Watch {
public:
    explicit Watch(WakeUp& wakeUp) : manager_(QDBusConnection::systemBus()) {
        QObject::connect(&manager_, &SleepMonitor::PrepareForSleep, &wakeUp, [&wakeUp](bool start) {
            if (!start)
                Q_EMIT wakeUp.woke();
        });
    }

private:
    SleepMonitor manager_;
};

WakeUp::WakeUp() : watch_(std::make_unique<Watch>(*this)) {}

WakeUp::~WakeUp() = default;

} // namespace tarnwick
