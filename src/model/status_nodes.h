// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick {

/// This machine, as the daemon reports it.
struct SelfNode {
    QString hostName;
    QString dnsName;
    QStringList tailscaleIPs; ///< Addresses in the daemon's order; the first one counts.
    bool online = false;

    bool operator==(const SelfNode&) const = default;

    /// None when a value has the wrong type; absent and null values keep their defaults.
    static std::optional<SelfNode> fromJson(const QJsonObject& json);
    QJsonObject toJson() const;
};

/// Another device of the network, as the daemon reports it. Its node key is the key of the map
/// that holds it.
struct PeerInfo {
    QString hostName;
    QString dnsName;
    QStringList tailscaleIPs; ///< Addresses in the daemon's order; the first one counts.
    bool online = false;
    QString os;

    bool operator==(const PeerInfo&) const = default;

    /// None when a value has the wrong type; absent and null values keep their defaults.
    static std::optional<PeerInfo> fromJson(const QJsonObject& json);
    QJsonObject toJson() const;
};

} // namespace tarnwick
