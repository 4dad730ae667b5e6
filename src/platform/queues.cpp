// SPDX-License-Identifier: MIT
#include "platform/queues.h"

#include <QCoreApplication>
#include <QObject>
#include <QSemaphore>
#include <QThread>

#include <memory>
#include <utility>

namespace tarnwick {

namespace {

// Together with the time that the queue is given before, it has to stay under a second.
constexpr auto leavingTimeout = std::chrono::milliseconds(300);

} // namespace

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

SerialQueue::SerialQueue(const QString& label, std::function<void()> prepare)
    : thread_(std::make_unique<QThread>()), context_(std::make_unique<QObject>()) {
    thread_->setObjectName(label);
    context_->moveToThread(thread_.get());
    thread_->start();
    if (prepare)
        async(std::move(prepare));
}

SerialQueue::~SerialQueue() {
    thread_->quit();
    if (thread_->wait(QDeadlineTimer(leavingTimeout)))
        return;
    // Stuck in the kernel, on a dead network file system for instance. Destroying a running thread
    // would abort the process: it is left behind, and deletes itself should it ever finish.
    QThread* thread = thread_.release();
    QObject::connect(thread, &QThread::finished, context_.release(), &QObject::deleteLater);
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
}

void SerialQueue::async(std::function<void()> work) {
    QMetaObject::invokeMethod(context_.get(), std::move(work), Qt::QueuedConnection);
}

bool SerialQueue::waitForAll(std::chrono::milliseconds limit) {
    const auto done = std::make_shared<QSemaphore>(); // outlives this call when it takes longer
    async([done] { done->release(); });
    return done->tryAcquire(1, static_cast<int>(limit.count()));
}

} // namespace tarnwick
