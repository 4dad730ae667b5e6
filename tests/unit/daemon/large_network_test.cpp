// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int deviceCount = 1000;
constexpr int recordSize = 1024;

// 7919 is a prime: every number below a thousand once, in no order.
QByteArray nameOf(int position) {
    return "device-" + QByteArray::number(1000 + position * 7919 % deviceCount);
}

QByteArray recordOf(int position) {
    const QByteArray key = "\"nodekey:" + QByteArray::number(position).rightJustified(64, '0');
    const QByteArray record = key + R"(":{"HostName":")" + nameOf(position) +
                              R"(","OS":"linux","Online":true,"TailscaleIPs":["100.64.0.1"],)";
    const QByteArray padding = R"("Capabilities":")";
    return record + padding + QByteArray(recordSize - record.size() - padding.size() - 3, 'x') +
           "\"},";
}

QByteArray statusOfThousandDevices() {
    QByteArray peers;
    for (int i = 0; i < deviceCount; ++i)
        peers += recordOf(i);
    peers.chop(1);
    return R"({"BackendState":"Running","Self":{"HostName":"laptop","Online":true},"Peer":{)" +
           peers + "}}";
}

TEST(LargeNetwork, ThousandDevicesWithFullRecordsAreShownSorted) {
    const QByteArray status = statusOfThousandDevices();
    ASSERT_GT(status.size(), 1'000'000);
    test::ControllerWorld world;
    world.answer("status", status);
    const auto manager = world.createRefreshed();
    EXPECT_TRUE(manager->state().isConnected);
    ASSERT_EQ(manager->state().devices.size(), deviceCount);
    for (int i = 0; i < deviceCount; ++i)
        ASSERT_EQ(manager->state().devices[i].hostName, u"device-%1"_s.arg(1000 + i));
}

} // namespace

} // namespace tarnwick
