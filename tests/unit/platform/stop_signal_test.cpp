// SPDX-License-Identifier: MIT
#include "platform/stop_signal.h"
#include "support/printing.h"
#include "support/shell.h"

#include <gtest/gtest.h>

#include <thread>

namespace tarnwick {

namespace {

using namespace std::chrono_literals;

TEST(StopSignal, WaitTakesItsFullTimeWithoutARequest) {
    const StopSignal stop;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(stop.waitFor(30ms));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 30ms);
    EXPECT_FALSE(stop.isRequested());
}

// Each wait would outlast the test's own time limit.
TEST(StopSignal, RequestEndsWaitsOfAllCopiesPresentAndFuture) {
    const StopSignal stop;
    std::thread sleeper([copy = stop] { EXPECT_TRUE(copy.waitFor(1h)); });
    std::thread other([copy = stop] { EXPECT_TRUE(copy.waitFor(1h)); });
    stop.request();
    sleeper.join();
    other.join();
    EXPECT_TRUE(stop.waitFor(1h));
    stop.request();
    EXPECT_TRUE(StopSignal(stop).isRequested());
}

TEST(StopSignal, LeavesNoDescriptorBehind) {
    const auto before = test::openDescriptors();
    for (int i = 0; i < 100; ++i)
        StopSignal().request();
    EXPECT_EQ(test::openDescriptors(), before);
}

} // namespace

} // namespace tarnwick
