// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>

namespace tarnwick {

/// A one-way switch that ends waits early, so that leaving the program waits for nobody.
///
/// Copies share the switch. Every operation may be called from any thread. Should the system be
/// out of descriptors, waits simply take their full time.
class CancellationToken {
public:
    CancellationToken();

    /// Ends every wait, present and future.
    void cancel() const;

    bool isCancelled() const;

    /// Sleeps for `duration`, or until it is cancelled; returns whether it was.
    bool waitFor(std::chrono::milliseconds duration) const;

    /// Becomes readable when it is cancelled; for use with poll(). -1 when there is none.
    int descriptor() const;

private:
    class Pipe;
    std::shared_ptr<Pipe> pipe_;
};

} // namespace tarnwick
