// SPDX-License-Identifier: MIT
#include "model/device_info.h"
#include "model/status_nodes.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

QString label(const QString& dnsName, const QString& hostName) {
    return DeviceInfo{u"key"_s, hostName, dnsName, {}, false, {}}.displayName();
}

TEST(DeviceInfo, DisplayNameOfASingleDotIsTheHostNameAndOfADotlessNameIsEmptyWithoutOne) {
    EXPECT_EQ(label(u"."_s, u"box"_s), u"box"_s);
    EXPECT_EQ(label(u"box"_s, u""_s), u""_s);
}

TEST(DeviceInfo, DisplayNameIsTheFirstPieceOfADottedName) {
    EXPECT_EQ(label(u"laptop.home."_s, u"other"_s), u"laptop"_s);
    EXPECT_EQ(label(u".laptop.home"_s, u"other"_s), u"laptop"_s);
    EXPECT_EQ(label(u"laptop."_s, u"other"_s), u"laptop"_s);
    EXPECT_EQ(label(u"..laptop"_s, u"other"_s), u"laptop"_s);
}

TEST(DeviceInfo, DisplayNameNeverShowsADotlessName) {
    EXPECT_EQ(label(u"laptop"_s, u"host"_s), u"host"_s);
    EXPECT_EQ(label(u""_s, u"host"_s), u"host"_s);
    EXPECT_EQ(label(u"..."_s, u""_s), u""_s);
}

TEST(DeviceInfo, IdentityIsTheNodeKey) {
    const auto device = DeviceInfo::fromPeer(u"nodekey:1"_s, {u"host"_s, {}, {}, true, u"linux"_s});
    EXPECT_EQ(device.id(), u"nodekey:1"_s);
    EXPECT_EQ(device.hostName, u"host"_s);
    EXPECT_TRUE(device.online);
    EXPECT_EQ(device.os, u"linux"_s);
}

} // namespace

} // namespace tarnwick
