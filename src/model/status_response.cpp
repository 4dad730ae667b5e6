// SPDX-License-Identifier: MIT
#include "model/status_response.h"

#include "model/code_point_order.h"
#include "model/strict_json.h"

#include <QJsonDocument>

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

std::optional<QMap<QString, PeerInfo>> peersFromJson(const QJsonObject& json) {
    QMap<QString, PeerInfo> peers;
    for (auto entry = json.begin(); entry != json.end(); ++entry) {
        const QJsonValue value = entry.value();
        if (value.isNull())
            continue;
        const auto peer = value.isObject() ? PeerInfo::fromJson(value.toObject()) : std::nullopt;
        if (!peer)
            return std::nullopt;
        peers.insert(peers.end(), entry.key(), *peer); // JSON objects come sorted by key
    }
    return peers;
}

} // namespace

std::optional<StatusResponse> StatusResponse::decode(const QByteArray& json) {
    const QJsonObject document = QJsonDocument::fromJson(json).object();
    const QJsonValue state = document.value("BackendState"_L1);
    if (!state.isString() || !isStrictJson(json))
        return std::nullopt;
    StatusResponse status;
    status.backendState = state.toString();

    const QJsonValue self = document.value("Self"_L1);
    if (!isAbsent(self)) {
        status.selfNode = self.isObject() ? SelfNode::fromJson(self.toObject()) : std::nullopt;
        if (!status.selfNode)
            return std::nullopt;
    }
    const QJsonValue peers = document.value("Peer"_L1);
    if (!isAbsent(peers)) {
        status.peer = peers.isObject() ? peersFromJson(peers.toObject()) : std::nullopt;
        if (!status.peer)
            return std::nullopt;
    }
    return status;
}

QJsonObject StatusResponse::toJson() const {
    QJsonObject json = {{u"BackendState"_s, backendState}};
    if (selfNode)
        json.insert("Self"_L1, selfNode->toJson());
    if (peer) {
        QJsonObject peers;
        for (auto entry = peer->begin(); entry != peer->end(); ++entry)
            peers.insert(entry.key(), entry.value().toJson());
        json.insert("Peer"_L1, peers);
    }
    return json;
}

bool StatusResponse::isConnected() const {
    return backendState == "Running"_L1 && selfNode && selfNode->online;
}

QString StatusResponse::ipAddress() const {
    return selfNode ? selfNode->tailscaleIPs.value(0) : QString();
}

QString StatusResponse::hostname() const {
    return selfNode ? selfNode->hostName : QString();
}

QList<DeviceInfo> StatusResponse::devices() const {
    QList<DeviceInfo> devices;
    if (!peer)
        return devices;
    devices.reserve(peer->size());
    for (auto entry = peer->begin(); entry != peer->end(); ++entry)
        devices.append(DeviceInfo::fromPeer(entry.key(), entry.value()));
    std::sort(devices.begin(), devices.end(), [](const DeviceInfo& a, const DeviceInfo& b) {
        const int byName = compareCodePoints(a.hostName, b.hostName);
        return byName != 0 ? byName < 0 : compareCodePoints(a.nodeKey, b.nodeKey) < 0;
    });
    return devices;
}

} // namespace tarnwick
