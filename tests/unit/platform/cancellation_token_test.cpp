// SPDX-License-Identifier: MIT
#include "platform/cancellation_token.h"
#include "support/printing.h"
#include "support/shell.h"

#include <gtest/gtest.h>

#include <thread>

namespace tarnwick {

namespace {

using namespace std::chrono_literals;

TEST(CancellationToken, WaitTakesItsFullTimeWithoutARequest) {
    const CancellationToken cancellation;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(cancellation.waitFor(30ms));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 30ms);
    EXPECT_FALSE(cancellation.isCancelled());
}

// Each wait would outlast the test's own time limit.
TEST(CancellationToken, RequestEndsWaitsOfAllCopiesPresentAndFuture) {
    const CancellationToken cancellation;
    std::thread sleeper([copy = cancellation] { EXPECT_TRUE(copy.waitFor(1h)); });
    std::thread other([copy = cancellation] { EXPECT_TRUE(copy.waitFor(1h)); });
    cancellation.cancel();
    sleeper.join();
    other.join();
    EXPECT_TRUE(cancellation.waitFor(1h));
    cancellation.cancel();
    EXPECT_TRUE(CancellationToken(cancellation).isCancelled());
}

TEST(CancellationToken, LeavesNoDescriptorBehind) {
    const auto before = test::openDescriptors();
    for (int i = 0; i < 100; ++i)
        CancellationToken().cancel();
    EXPECT_EQ(test::openDescriptors(), before);
}

} // namespace

} // namespace tarnwick
