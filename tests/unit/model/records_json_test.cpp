// SPDX-License-Identifier: MIT
#include "model/device_info.h"
#include "model/status_response.h"
#include "support/printing.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

const auto smiley = u"\U0001F600"_s;

TEST(RecordsAsJson, DeviceWritesEveryKeyAndReadsBackTheSame) {
    const DeviceInfo device{u"k"_s, u"host "_s + smiley, u"a.b."_s, {u"::1"_s, u"1.2.3.4"_s},
                            true,   u"linux"_s};
    const QJsonObject json = device.toJson();
    EXPECT_EQ(json.keys(), (QStringList{u"DNSName"_s, u"HostName"_s, u"OS"_s, u"Online"_s,
                                        u"PublicKey"_s, u"TailscaleIPs"_s}));
    EXPECT_EQ(DeviceInfo::fromJson(json), device);
    EXPECT_EQ(DeviceInfo().toJson().size(), 6);
    EXPECT_EQ(DeviceInfo::fromJson({}), DeviceInfo());
}

TEST(RecordsAsJson, DeviceWithAKeyOfAnotherTypeFails) {
    EXPECT_FALSE(DeviceInfo::fromJson({{u"PublicKey"_s, 5}}));
    EXPECT_FALSE(DeviceInfo::fromJson({{u"OS"_s, true}}));
    EXPECT_EQ(DeviceInfo::fromJson({{u"PublicKey"_s, QJsonValue()}}), DeviceInfo());
}

TEST(RecordsAsJson, SelfNodeWritesEveryKeyAndReadsBackTheSame) {
    const SelfNode node{smiley, u"x."_s, {u"100.64.0.1"_s}, true};
    EXPECT_EQ(node.toJson().keys(),
              (QStringList{u"DNSName"_s, u"HostName"_s, u"Online"_s, u"TailscaleIPs"_s}));
    EXPECT_EQ(SelfNode::fromJson(node.toJson()), node);
    EXPECT_EQ(SelfNode().toJson().size(), 4);
}

TEST(RecordsAsJson, PeerWritesEveryKeyAndReadsBackTheSame) {
    const PeerInfo peer{u"p"_s, u"p.q"_s, {}, false, u"windows"_s};
    EXPECT_EQ(peer.toJson().keys(),
              (QStringList{u"DNSName"_s, u"HostName"_s, u"OS"_s, u"Online"_s, u"TailscaleIPs"_s}));
    EXPECT_EQ(PeerInfo::fromJson(peer.toJson()), peer);
    EXPECT_EQ(PeerInfo().toJson().size(), 5);
}

TEST(RecordsAsJson, StatusWritesSelfAndPeersOnlyWhenPresentAndReadsBackTheSame) {
    StatusResponse status{u"Running"_s, std::nullopt, std::nullopt};
    EXPECT_EQ(status.toJson().keys(), QStringList{u"BackendState"_s});

    status.selfNode = SelfNode{u"me"_s, {}, {u"::2"_s}, true};
    status.peer = QMap<QString, PeerInfo>{{smiley, {u"a"_s, {}, {}, true, {}}}, {u""_s, {}}};
    const QJsonObject json = status.toJson();
    EXPECT_EQ(json.keys(), (QStringList{u"BackendState"_s, u"Peer"_s, u"Self"_s}));
    EXPECT_EQ(StatusResponse::decode(QJsonDocument(json).toJson()), status);

    status.peer = QMap<QString, PeerInfo>{};
    EXPECT_TRUE(status.toJson().contains(u"Peer"_s)) << "an empty map is not an absent one";
}

} // namespace

} // namespace tarnwick
