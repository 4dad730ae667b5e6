// SPDX-License-Identifier: MIT
#include "platform/serial_queue.h"

#include <QObject>
#include <QThread>

#include <chrono>

namespace tarnwick {

namespace {

constexpr auto leavingTimeout = std::chrono::milliseconds(500);

} // namespace

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

} // namespace tarnwick
