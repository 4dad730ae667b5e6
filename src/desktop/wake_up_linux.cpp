// SPDX-License-Identifier: MIT
#include "desktop/message_bus_linux.h"
#include "desktop/sleep_monitor_linux.h"
#include "desktop/wake_up.h"

namespace tarnwick {

class WakeUp::Watch {
public:
    explicit Watch(WakeUp& wakeUp) : bus_(MessageBus::systemAddress()) {
        QObject::connect(&bus_, &MessageBus::connected, &wakeUp, [this, &wakeUp] {
            manager_ = std::make_unique<SleepMonitor>(bus_.connection());
            QObject::connect(manager_.get(), &SleepMonitor::PrepareForSleep, &wakeUp,
                             [&wakeUp](bool start) {
                                 if (!start)
                                     Q_EMIT wakeUp.woke();
                             });
        });
        QObject::connect(&bus_, &MessageBus::unavailable, &wakeUp, [this] { manager_.reset(); });
    }

private:
    MessageBus bus_;
    std::unique_ptr<SleepMonitor> manager_; ///< Null while there is no bus.
};

WakeUp::WakeUp() : watch_(std::make_unique<Watch>(*this)) {}

WakeUp::~WakeUp() = default;

} // namespace tarnwick
