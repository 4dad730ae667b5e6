// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>

#include <chrono>
#include <memory>

namespace tarnwick {

/// A one-way switch that ends waits early, so that leaving the program waits for nobody.
///
/// Copies share the switch. Any thread may call any operation. When the system is out of
/// descriptors, waits take their full time.
class CancellationToken {
public:
    CancellationToken();

    /// Ends every wait, present and future.
    void cancel() const;

    bool isCancelled() const;

    /// Expires `duration` after the cancellation; never before there is one.
    QDeadlineTimer deadlineAfterCancellation(std::chrono::milliseconds duration) const;

    /// Sleeps for `duration` or until cancelled; returns whether it was cancelled.
    bool waitFor(std::chrono::milliseconds duration) const;

    /// Becomes readable on cancellation, for use with poll(); -1 when there is none.
    int descriptor() const;

private:
    class Pipe;
    std::shared_ptr<Pipe> pipe_;
};

} // namespace tarnwick
