// SPDX-License-Identifier: MIT
#include "platform/main_queue.h"

#include <QCoreApplication>

namespace tarnwick {

void postToMainQueue(std::function<void()> work) {
    if (auto* application = QCoreApplication::instance())
        QMetaObject::invokeMethod(application, std::move(work), Qt::QueuedConnection);
}

} // namespace tarnwick
