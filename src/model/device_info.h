// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

struct PeerInfo;

/// One other device as the user sees it listed.
struct DeviceInfo {
    QString nodeKey;
    QString hostName;
    QString dnsName;
    QStringList tailscaleIPs;
    bool online = false;
    QString os;

    bool operator==(const DeviceInfo&) const = default;

    /// What lists key their rows by.
    const QString& id() const { return nodeKey; }

    /// The label shown: the first part of a dotted DNS name, else the host name.
    QString displayName() const;

    static DeviceInfo fromPeer(const QString& nodeKey, const PeerInfo& peer);

    /// None when a value has the wrong type; absent and null values keep their defaults.
    static std::optional<DeviceInfo> fromJson(const QJsonObject& json);
    QJsonObject toJson() const;
};

} // namespace tarnwick
