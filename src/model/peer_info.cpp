// SPDX-License-Identifier: MIT
#include "model/peer_info.h"

#include "model/json_fields.h"

#include <QJsonArray>

namespace tarnwick {

using namespace Qt::StringLiterals;

std::optional<PeerInfo> PeerInfo::fromJson(const QJsonObject& json) {
    PeerInfo peer;
    JsonFields fields(json);
    fields.read("HostName"_L1, peer.hostName);
    fields.read("DNSName"_L1, peer.dnsName);
    fields.read("TailscaleIPs"_L1, peer.tailscaleIPs);
    fields.read("Online"_L1, peer.online);
    fields.read("OS"_L1, peer.os);
    return fields.isValid() ? std::optional(peer) : std::nullopt;
}

QJsonObject PeerInfo::toJson() const {
    return {
        {u"HostName"_s, hostName},
        {u"DNSName"_s, dnsName},
        {u"TailscaleIPs"_s, QJsonArray::fromStringList(tailscaleIPs)},
        {u"Online"_s, online},
        {u"OS"_s, os},
    };
}

} // namespace tarnwick
