// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/descriptor.h"

#include <thread>

namespace tarnwick::simulator {

/// Turns SIGTERM and SIGINT into a readable descriptor. Create it before any other thread: it
/// blocks both signals in the calling thread, and threads inherit that.
class StopSignal {
public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// Becomes readable when the program should end.
    int descriptor() const { return readEnd_.get(); }

private:
    Descriptor readEnd_;
    Descriptor writeEnd_;
    std::thread waiter_;
};

} // namespace tarnwick::simulator
