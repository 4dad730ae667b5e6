// SPDX-License-Identifier: MIT
#include "model/status_response.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

QStringList hostNames(const StatusResponse& status) {
    QStringList names;
    for (const DeviceInfo& device : status.devices())
        names.append(device.hostName);
    return names;
}

TEST(StatusResponse, BackendStateAloneDecodesToNotConnectedAndEmpty) {
    const auto status = StatusResponse::decode(R"({"BackendState":"Running"})");
    ASSERT_TRUE(status);
    EXPECT_EQ(status->backendState, u"Running"_s);
    EXPECT_FALSE(status->isConnected());
    EXPECT_EQ(status->ipAddress(), u""_s);
    EXPECT_EQ(status->hostname(), u""_s);
    EXPECT_TRUE(status->devices().isEmpty());
}

TEST(StatusResponse, FirstAddressWinsWhateverItsFamily) {
    const auto status = StatusResponse::decode(
        R"({"BackendState":"Running","Self":{"HostName":"me","Online":true,
            "TailscaleIPs":["fd7a::1","100.64.0.1"]}})");
    ASSERT_TRUE(status);
    EXPECT_TRUE(status->isConnected());
    EXPECT_EQ(status->ipAddress(), u"fd7a::1"_s);
    EXPECT_EQ(status->hostname(), u"me"_s);
}

TEST(StatusResponse, LowerCaseRunningOrAnyOtherStateIsNotConnected) {
    for (const char* state : {"running", "RUNNING", "Running ", "Starting", "Stopped", ""}) {
        const auto status = StatusResponse::decode(
            QByteArray(R"({"Self":{"Online":true},"BackendState":")") + state + "\"}");
        ASSERT_TRUE(status) << state;
        EXPECT_FALSE(status->isConnected()) << state;
    }
}

TEST(StatusResponse, PeersAreListedInCodePointOrderOfTheirHostNames) {
    const auto status = StatusResponse::decode(R"({"BackendState":"Running","Peer":{
        "1":{"HostName":"beta"},"2":{"HostName":"alpha"},"3":{"HostName":"Alpha"}}})");
    ASSERT_TRUE(status);
    EXPECT_EQ(hostNames(*status), (QStringList{u"Alpha"_s, u"alpha"_s, u"beta"_s}));
}

TEST(StatusResponse, EmptyPeerIsListedFirstWithItsMapKey) {
    const auto status = StatusResponse::decode(
        R"({"BackendState":"Running","Peer":{"a":{"HostName":"zed","OS":"linux"},"k":{}}})");
    ASSERT_TRUE(status);
    ASSERT_EQ(status->devices().size(), 2);
    EXPECT_EQ(status->devices().front(), (DeviceInfo{u"k"_s, {}, {}, {}, false, {}}));
}

TEST(StatusResponse, EmptySelfWithoutBackendStateFailsToDecode) {
    EXPECT_FALSE(StatusResponse::decode(R"({"Self":{}})"));
    EXPECT_FALSE(StatusResponse::decode(R"({"Self":{},"BackendState":null})"));
}

TEST(StatusResponse, NullPeerIsTheSameAsNone) {
    const auto status = StatusResponse::decode(R"({"BackendState":"Running","Peer":null})");
    ASSERT_TRUE(status);
    EXPECT_FALSE(status->peer);
    EXPECT_TRUE(status->devices().isEmpty());
}

// The last of the record's cases, the labels of a lone dot and of a dotless name, is in
// device_info_test.cpp.

TEST(StatusResponse, NullInTheMapOfPeersIsNoPeer) {
    const auto status = StatusResponse::decode(
        R"({"BackendState":"Running","Peer":{"a":null,"b":{"HostName":"beta"}}})");
    ASSERT_TRUE(status && status->peer);
    EXPECT_EQ(status->peer->keys(), QStringList{u"b"_s});
    EXPECT_EQ(status->devices().size(), 1);
}

TEST(StatusResponse, NullsAreTheSameAsAbsentKeys) {
    const auto status = StatusResponse::decode(
        R"({"BackendState":"Running","Self":{"HostName":null,"DNSName":null,"TailscaleIPs":null,
            "Online":null},"Peer":{"k":{"HostName":null,"DNSName":null,"TailscaleIPs":null,
            "Online":null,"OS":null}}})");
    ASSERT_TRUE(status);
    EXPECT_EQ(status->selfNode, SelfNode());
    EXPECT_EQ(status->peer, (QMap<QString, PeerInfo>{{u"k"_s, PeerInfo()}}));
    EXPECT_FALSE(StatusResponse::decode(R"({"BackendState":"Running","Self":null})")->selfNode);
}

TEST(StatusResponse, UnknownKeysAndKeysInAnotherCaseAreIgnored) {
    const auto status = StatusResponse::decode(
        R"({"Version":"1","BackendState":"Running","backendstate":7,"self":[1],
            "Self":{"Online":true,"online":"no","Capabilities":{"x":[1,2.5]}},"Health":[]})");
    ASSERT_TRUE(status);
    EXPECT_TRUE(status->isConnected());
}

TEST(StatusResponse, OfflineSelfIsNotConnectedButKeepsItsAddress) {
    const auto status = StatusResponse::decode(
        R"({"BackendState":"Running","Self":{"HostName":"me","TailscaleIPs":["1.1.1.1"]}})");
    ASSERT_TRUE(status);
    EXPECT_FALSE(status->isConnected());
    EXPECT_EQ(status->ipAddress(), u"1.1.1.1"_s);
}

class WrongType : public testing::TestWithParam<const char*> {};

TEST_P(WrongType, FailsTheWholeDecode) {
    EXPECT_FALSE(StatusResponse::decode(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongType,
    testing::Values(R"({"BackendState":5})", R"({"BackendState":true})",
                    R"({"BackendState":["Running"]})", R"({"BackendState":"Running","Self":[]})",
                    R"({"BackendState":"Running","Self":"me"})",
                    R"({"BackendState":"Running","Self":false})",
                    R"({"BackendState":"Running","Self":{"Online":"true"}})",
                    R"({"BackendState":"Running","Self":{"Online":1}})",
                    R"({"BackendState":"Running","Self":{"HostName":5}})",
                    R"({"BackendState":"Running","Self":{"DNSName":{}}})",
                    R"({"BackendState":"Running","Self":{"TailscaleIPs":"1.1.1.1"}})",
                    R"({"BackendState":"Running","Self":{"TailscaleIPs":{}}})",
                    R"({"BackendState":"Running","Self":{"TailscaleIPs":["1.1.1.1",5]}})",
                    R"({"BackendState":"Running","Self":{"TailscaleIPs":[null]}})",
                    R"({"BackendState":"Running","Peer":[]})",
                    R"({"BackendState":"Running","Peer":"k"})",
                    R"({"BackendState":"Running","Peer":{"k":5}})",
                    R"({"BackendState":"Running","Peer":{"k":[]}})",
                    R"({"BackendState":"Running","Peer":{"a":{},"k":{"OS":5}}})",
                    R"({"BackendState":"Running","Peer":{"k":{"Online":"yes"}}})",
                    R"({"BackendState":"Running","Peer":{"k":{"TailscaleIPs":[[]]}}})"));

class NotOneDocument : public testing::TestWithParam<const char*> {};

TEST_P(NotOneDocument, FailsToDecode) {
    EXPECT_FALSE(StatusResponse::decode(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    All, NotOneDocument,
    testing::Values("", " ", "error: connection timed out", "[]", "null", "\"Running\"", "5",
                    R"(Warning: x {"BackendState":"Running"})",
                    R"({"BackendState":"Running"} done)",
                    R"({"BackendState":"Running"}{"BackendState":"Running"})",
                    R"({"BackendState":"Running")", R"({"BackendState":"Runn)",
                    R"({"BackendState":"Running",})", R"({'BackendState':'Running'})",
                    "{\"BackendState\":\"Run\nning\"}", R"({"BackendState":"Running","x":"\q"})",
                    R"([{"BackendState":"Running"}])"));

TEST(StatusResponse, ThousandNestedArraysFailToDecodeAndDoNoHarm) {
    const QByteArray nested = QByteArray(1000, '[') + QByteArray(1000, ']');
    EXPECT_FALSE(StatusResponse::decode(nested));
    EXPECT_FALSE(StatusResponse::decode(QByteArray(1'000'000, '[')));
    EXPECT_FALSE(StatusResponse::decode(R"({"BackendState":"Running","Self":)" + nested + "}"));
}

TEST(StatusResponse, EmojiSortsAfterFullWidthTilde) {
    const auto status = StatusResponse::decode(
        "{\"BackendState\":\"Running\",\"Peer\":{\"1\":{\"HostName\":\"\xF0\x9F\x98\x80\"},"
        "\"2\":{\"HostName\":\"\xEF\xBD\x9E\"},\"3\":{\"HostName\":\"z\"}}}");
    ASSERT_TRUE(status);
    EXPECT_EQ(hostNames(*status), (QStringList{u"z"_s, u"\uFF5E"_s, u"\U0001F600"_s}));
}

TEST(StatusResponse, PeersOfOneHostNameAreOrderedByNodeKey) {
    StatusResponse status{u"Running"_s, {}, QMap<QString, PeerInfo>{}};
    for (const auto& key : {u"c"_s, u"a"_s, u"b"_s, u"\U0001F600"_s, u"\uFF5E"_s})
        status.peer->insert(key, {u"twin"_s, {}, {}, key == u"c"_s, {}});
    QStringList keys;
    for (const DeviceInfo& device : status.devices())
        keys.append(device.nodeKey);
    EXPECT_EQ(keys, (QStringList{u"a"_s, u"b"_s, u"c"_s, u"\uFF5E"_s, u"\U0001F600"_s}));
}

TEST(StatusResponse, ThousandsOfPeersAreAllListedInOrder) {
    StatusResponse status{u"Running"_s, {}, QMap<QString, PeerInfo>{}};
    for (int i = 0; i < 5000; ++i)
        status.peer->insert(QString::number(i),
                            {QString::number((i * 7919) % 5000), {}, {}, {}, {}});
    const QStringList names = hostNames(status);
    EXPECT_EQ(names.size(), 5000);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

} // namespace

} // namespace tarnwick
