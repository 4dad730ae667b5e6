// SPDX-License-Identifier: MIT
#include "core/simulator.h"
#include "moments.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <gtest/gtest.h>

namespace tarnwick::simulator::test {

using namespace Qt::StringLiterals;

namespace {

World builtInWorld() {
    QString problem;
    const auto world = World::load(World::builtIn(), problem);
    EXPECT_TRUE(world) << problem.toStdString();
    return world.value_or(World());
}

class SimulatorTime : public testing::Test {
protected:
    QJsonObject status(double seconds) {
        const Reply reply = simulator_.handle({"status", "--json"}, at(seconds));
        return QJsonDocument::fromJson(reply.out).object();
    }

    QString state(double seconds) { return status(seconds).value("BackendState"_L1).toString(); }

    int logIn(const QByteArray& key, double seconds) {
        return simulator_
            .handle({"login", "--login-server=https://a.example", "--authkey", key}, at(seconds))
            .exitStatus;
    }

    QSet<QString> online(double seconds) {
        QSet<QString> names;
        for (const QJsonValue& peer : status(seconds).value("Peer"_L1).toObject()) {
            if (peer["Online"_L1].toBool())
                names.insert(peer["HostName"_L1].toString());
        }
        return names;
    }

    Simulator simulator_{builtInWorld(), {}, Faults(), u"tun0"_s};
};

} // namespace

TEST_F(SimulatorTime, StartingLastsTwoSeconds) {
    logIn("twkey-harbor-good", 100);
    EXPECT_EQ(state(100), u"Starting"_s);
    EXPECT_EQ(state(101.999), u"Starting"_s);
    EXPECT_EQ(state(102), u"Running"_s);
}

TEST_F(SimulatorTime, UpWhileStartingDoesNotBeginAnew) {
    logIn("twkey-harbor-good", 100);
    simulator_.handle({"up"}, at(101));
    EXPECT_EQ(state(102), u"Running"_s);
}

TEST_F(SimulatorTime, SwitchingWhileRunningPassesThroughStarting) {
    logIn("twkey-harbor-good", 0);
    const QByteArray first = simulator_.handle({"simulator", "state"}, at(0)).out;
    logIn("twkey-kite-good", 0);
    const QJsonObject account = QJsonDocument::fromJson(first).object();
    EXPECT_EQ(state(50), u"Running"_s);
    simulator_.handle({"switch", account.value("current"_L1).toString().toUtf8()}, at(50));
    EXPECT_EQ(state(51), u"Starting"_s);
    EXPECT_EQ(state(52), u"Running"_s);
}

TEST_F(SimulatorTime, LoginLapsesAndCanBeRenewed) {
    EXPECT_EQ(logIn("twkey-harbor-brief", 0), 0);
    EXPECT_EQ(state(59.9), u"Running"_s);
    EXPECT_EQ(state(60), u"NeedsLogin"_s);
    EXPECT_EQ(simulator_.handle({"up"}, at(61)).exitStatus, 1);
    // The profile is still there; it only needs a new log-in.
    EXPECT_TRUE(simulator_.handle({"switch", "--list"}, at(61)).out.contains("ops@"));
    EXPECT_EQ(logIn("twkey-harbor-brief", 70), 0);
    EXPECT_EQ(state(72), u"Running"_s);
}

TEST_F(SimulatorTime, PeersComeAndGoTheSameWayInEveryRun) {
    logIn("twkey-harbor-good", 0);
    Simulator other(builtInWorld(), {}, Faults(), u"tun0"_s);
    QSet<QSet<QString>> seen;
    for (int second = 3; second < 1200; second += 20) {
        seen.insert(online(second));
        EXPECT_TRUE(online(second).contains(u"harbor-files"_s)) << "which never leaves";
    }
    EXPECT_GT(seen.size(), 20);
    other.handle({"login", "--login-server=https://a.example", "--authkey", "twkey-harbor-good"},
                 at(0));
    EXPECT_EQ(other.handle({"status", "--json"}, at(777)).out,
              simulator_.handle({"status", "--json"}, at(777)).out);
}

TEST_F(SimulatorTime, PeersKeepTheirFirstStateAtFirst) {
    logIn("twkey-harbor-good", 0);
    EXPECT_EQ(online(3).size(), 9);
    EXPECT_FALSE(online(3).contains(u"mira-pixel"_s));
}

} // namespace tarnwick::simulator::test
