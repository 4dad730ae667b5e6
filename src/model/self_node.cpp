// SPDX-License-Identifier: MIT
#include "model/self_node.h"

#include "model/json_fields.h"

#include <QJsonArray>

namespace tarnwick {

using namespace Qt::StringLiterals;

std::optional<SelfNode> SelfNode::fromJson(const QJsonObject& json) {
    SelfNode node;
    JsonFields fields(json);
    fields.read("HostName"_L1, node.hostName);
    fields.read("DNSName"_L1, node.dnsName);
    fields.read("TailscaleIPs"_L1, node.tailscaleIPs);
    fields.read("Online"_L1, node.online);
    return fields.isValid() ? std::optional(node) : std::nullopt;
}

QJsonObject SelfNode::toJson() const {
    return {
        {u"HostName"_s, hostName},
        {u"DNSName"_s, dnsName},
        {u"TailscaleIPs"_s, QJsonArray::fromStringList(tailscaleIPs)},
        {u"Online"_s, online},
    };
}

} // namespace tarnwick
