// SPDX-License-Identifier: MIT
#include "picture.h"

#include <QCoreApplication>
#include <QTest>

namespace tarnwick::pictures {

void settle(QWidget& window) {
    (void)QTest::qWaitForWindowActive(&window);
    constexpr int turns = 5; // each may queue something for the next
    for (int turn = 0; turn < turns; ++turn) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

} // namespace tarnwick::pictures
