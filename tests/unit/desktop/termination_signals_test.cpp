// SPDX-License-Identifier: MIT
#include "desktop/termination_signals.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <csignal>

namespace tarnwick {

using test::waitUntil;

TEST(TerminationSignals, EachIsHeardInTheEventLoop) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        TerminationSignals signals;
        bool heard = false;
        QObject::connect(&signals, &TerminationSignals::received, &signals, [&] { heard = true; });
        std::raise(signal);
        EXPECT_FALSE(heard);
        EXPECT_TRUE(waitUntil([&] { return heard; }));
    }
}

TEST(TerminationSignals, AFloodOfThemIsOneAndBlocksNobody) {
    TerminationSignals signals;
    int heard = 0;
    QObject::connect(&signals, &TerminationSignals::received, &signals, [&] { ++heard; });
    for (int i = 0; i < 100'000; ++i)
        std::raise(SIGTERM);
    EXPECT_TRUE(waitUntil([&] { return heard > 0; }));
    EXPECT_EQ(heard, 1);
}

TEST(TerminationSignalsDeathTest, AfterItsTimeTheyEndTheProcessAgain) {
    { const TerminationSignals signals; }
    EXPECT_EXIT(std::raise(SIGTERM), testing::KilledBySignal(SIGTERM), "");
}

} // namespace tarnwick
