// SPDX-License-Identifier: MIT
#include "platform/queues.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QDir>
#include <QList>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <semaphore>
#include <thread>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

TEST(SerialQueue, RunsOneAfterAnotherInTheOrderGiven) {
    QList<int> order; // written by the queue's one thread
    std::atomic<bool> isDone = false;
    SerialQueue queue(u"test"_s, [&] { order.append(-1); });
    for (int i = 0; i < 1000; ++i)
        queue.async([&order, i] { order.append(i); });
    queue.async([&] { isDone = true; });
    ASSERT_TRUE(test::waitUntil([&] { return isDone.load(); }));
    ASSERT_EQ(order.size(), 1001);
    for (int i = 0; i < order.size(); ++i)
        EXPECT_EQ(order[i], i - 1);
}

TEST(SerialQueue, WorkRunsOnAThreadOfItsOwnThatCarriesTheLabel) {
    std::atomic<bool> isDone = false;
    SerialQueue queue(u"com.tarnwick.client.daemon"_s);
    queue.async([&, mainThread = QThread::currentThread()] {
        EXPECT_NE(QThread::currentThread(), mainThread);
        EXPECT_EQ(QThread::currentThread()->objectName(), u"com.tarnwick.client.daemon"_s);
        isDone = true;
    });
    EXPECT_TRUE(test::waitUntil([&] { return isDone.load(); }));
}

TEST(SerialQueue, TakesWorkFromAnyThread) {
    std::atomic<int> count = 0;
    SerialQueue queue(u"test"_s);
    std::thread other([&] {
        for (int i = 0; i < 100; ++i)
            queue.async([&] { ++count; });
    });
    for (int i = 0; i < 100; ++i)
        queue.async([&] { ++count; });
    other.join();
    EXPECT_TRUE(test::waitUntil([&] { return count == 200; }));
}

TEST(SerialQueue, DestructionLeavesAPieceThatNeverEndsBehind) {
    const auto release = std::make_shared<std::binary_semaphore>(0);
    const auto isRunning = std::make_shared<std::atomic<bool>>(false);
    const auto threadCount = [] {
        return QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    };
    const auto before = threadCount();
    {
        SerialQueue queue(u"test"_s);
        queue.async([release, isRunning] {
            *isRunning = true;
            release->acquire();
        });
        ASSERT_TRUE(test::waitUntil([&] { return isRunning->load(); }));
    } // the test would run into its time limit here if the queue waited
    release->release();
    EXPECT_TRUE(test::waitUntil([&] { return threadCount() <= before; })) << "it goes afterwards";
    test::runEventLoopFor(std::chrono::milliseconds(10)); // the main thread's part of that
}

} // namespace

} // namespace tarnwick
