// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

class QObject;
class QThread;

namespace tarnwick {

/// Runs `work` on the main thread, in a later turn of its event loop, in the order posted. Any
/// thread. Once the application object is gone the work is dropped.
void postToMainQueue(std::function<void()> work);

/// One background thread that runs its tasks one after another, in the order of async().
///
/// The destructor waits a moment for the task that is running: one that blocks is expected to
/// watch a CancellationToken, and one that does not is left behind. Tasks not yet begun may or may
/// not run. async() may be called from any thread.
class SerialQueue {
public:
    /// `label` names the thread; `prepare`, when given, runs first on it.
    explicit SerialQueue(const QString& label, std::function<void()> prepare = {});
    ~SerialQueue();
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    void async(std::function<void()> work);

    /// Blocks until all work that was given so far has run, or for `limit`; false then.
    bool waitForAll(std::chrono::milliseconds limit);

private:
    std::unique_ptr<QThread> thread_;
    std::unique_ptr<QObject> context_; ///< Lives on the thread; work is posted to it.
};

} // namespace tarnwick
