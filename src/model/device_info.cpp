// SPDX-License-Identifier: MIT
#include "model/device_info.h"

#include "model/status_nodes.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

QString DeviceInfo::displayName() const {
    if (!dnsName.contains(u'.'))
        return hostName;
    const QStringList pieces = dnsName.split(u'.', Qt::SkipEmptyParts);
    return pieces.isEmpty() ? hostName : pieces.first();
}

DeviceInfo DeviceInfo::fromPeer(const QString& nodeKey, const PeerInfo& peer) {
    return {nodeKey, peer.hostName, peer.dnsName, peer.tailscaleIPs, peer.online, peer.os};
}

std::optional<DeviceInfo> DeviceInfo::fromJson(const QJsonObject& json) {
    const auto peer = PeerInfo::fromJson(json);
    const QJsonValue key = json.value("PublicKey"_L1);
    const bool hasKeyOfRightType = key.isString() || key.isNull() || key.isUndefined();
    if (!peer || !hasKeyOfRightType)
        return std::nullopt;
    return fromPeer(key.toString(), *peer);
}

QJsonObject DeviceInfo::toJson() const {
    QJsonObject json = PeerInfo{hostName, dnsName, tailscaleIPs, online, os}.toJson();
    json.insert("PublicKey"_L1, nodeKey);
    return json;
}

} // namespace tarnwick
