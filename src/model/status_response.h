// SPDX-License-Identifier: MIT
#pragma once

#include "model/device_info.h"
#include "model/status_nodes.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>

#include <optional>

namespace tarnwick {

/// The document that the tool prints for `status --json`, and what follows from it.
struct StatusResponse {
    QString backendState;
    std::optional<SelfNode> selfNode;
    std::optional<QMap<QString, PeerInfo>> peer; ///< Keyed by the peer's node public key.

    bool operator==(const StatusResponse&) const = default;

    /// Decodes one JSON document in UTF-8. None when it is not exactly one, when it has no backend
    /// state, or when any value has the wrong type: half a status is worse than none.
    static std::optional<StatusResponse> decode(const QByteArray& json);
    QJsonObject toJson() const;

    /// Whether this machine takes part in the network: running, and online itself.
    bool isConnected() const;

    /// This machine's first address, whatever its family; "" when it has none.
    QString ipAddress() const;

    /// This machine's host name in the network; "" when it has none.
    QString hostname() const;

    /// All peers by host name (code points), then by node key so that the order never flickers.
    QList<DeviceInfo> devices() const;
};

} // namespace tarnwick
