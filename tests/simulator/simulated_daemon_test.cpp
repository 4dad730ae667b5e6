// SPDX-License-Identifier: MIT
#include "support/simulated_daemon.h"

#include <QFile>
#include <QJsonArray>

#include <gtest/gtest.h>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

TEST(SimulatedDaemon, ServesATestFromStartToStop) {
    SimulatedDaemon daemon;
    ASSERT_TRUE(daemon.isRunning());
    EXPECT_EQ(daemon.logIn(u"twkey-kite-good"_s), "Success.\n");
    EXPECT_EQ(daemon.account().value("backendState"_L1), u"Running"_s);
    daemon.setFaults({u"error@down"_s});
    EXPECT_TRUE(daemon.tool({u"down"_s}).startsWith("error: "));
    ASSERT_EQ(daemon.log().size(), 2);
    EXPECT_EQ(daemon.log().at(1).value("fault"_L1), u"error"_s);
    EXPECT_EQ(daemon.stop(), 0);
    EXPECT_FALSE(QFile::exists(daemon.socketPath()));
    ASSERT_TRUE(daemon.start());
    EXPECT_EQ(daemon.account().value("profiles"_L1).toArray().size(), 1);
}

TEST(SimulatedDaemon, CanBeKeptStarting) {
    const SimulatedDaemon daemon(3600);
    daemon.logIn(u"twkey-kite-good"_s);
    EXPECT_EQ(daemon.account().value("backendState"_L1), u"Starting"_s);
}

} // namespace tarnwick::test
