// SPDX-License-Identifier: MIT
#include "support/waiting.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace tarnwick::test {

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    using namespace std::chrono_literals;
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        runEventLoopFor(5ms);
    }
    return true;
}

void runEventLoopFor(std::chrono::milliseconds duration) {
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace tarnwick::test
