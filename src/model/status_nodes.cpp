// SPDX-License-Identifier: MIT
#include "model/status_nodes.h"

#include "model/strict_json.h"

#include <QJsonArray>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// What this machine and its peers have in common.
template <typename Node>
JsonFields readNode(const QJsonObject& json, Node& node) {
    JsonFields fields(json);
    fields.read("HostName"_L1, node.hostName);
    fields.read("DNSName"_L1, node.dnsName);
    fields.read("TailscaleIPs"_L1, node.tailscaleIPs);
    fields.read("Online"_L1, node.online);
    return fields;
}

template <typename Node>
QJsonObject nodeToJson(const Node& node) {
    return {
        {u"HostName"_s, node.hostName},
        {u"DNSName"_s, node.dnsName},
        {u"TailscaleIPs"_s, QJsonArray::fromStringList(node.tailscaleIPs)},
        {u"Online"_s, node.online},
    };
}

} // namespace

std::optional<SelfNode> SelfNode::fromJson(const QJsonObject& json) {
    SelfNode node;
    const JsonFields fields = readNode(json, node);
    return fields.isValid() ? std::optional(node) : std::nullopt;
}

QJsonObject SelfNode::toJson() const {
    return nodeToJson(*this);
}

std::optional<PeerInfo> PeerInfo::fromJson(const QJsonObject& json) {
    PeerInfo peer;
    JsonFields fields = readNode(json, peer);
    fields.read("OS"_L1, peer.os);
    return fields.isValid() ? std::optional(peer) : std::nullopt;
}

QJsonObject PeerInfo::toJson() const {
    QJsonObject json = nodeToJson(*this);
    json.insert("OS"_L1, os);
    return json;
}

} // namespace tarnwick
