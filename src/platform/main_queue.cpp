// SPDX-License-Identifier: MIT
#include "platform/main_queue.h"

#include <QCoreApplication>

#include <memory>
#include <utility>

namespace tarnwick {

void postToMainQueue(std::function<void()> work) {
    auto* application = QCoreApplication::instance();
    if (application == nullptr)
        return;
    // Qt keeps what is posted until the call that posts it returns, and by then the main thread may
    // be done with it: the work is moved out, so that it is never this thread that destroys it.
    const auto box = std::make_shared<std::function<void()>>(std::move(work));
    const auto unpack = [box] {
        const auto taken = std::exchange(*box, nullptr);
        taken();
    };
    QMetaObject::invokeMethod(application, unpack, Qt::QueuedConnection);
}

} // namespace tarnwick
