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
    // invokeMethod() holds a copy until it returns, when the main thread may have finished already:
    // the work is moved out of it, so that the main thread is always the one that destroys it.
    const auto box = std::make_shared<std::function<void()>>(std::move(work));
    const auto unpack = [box] {
        const auto taken = std::exchange(*box, nullptr);
        taken();
    };
    QMetaObject::invokeMethod(application, unpack, Qt::QueuedConnection);
}

} // namespace tarnwick
