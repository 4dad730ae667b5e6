// SPDX-License-Identifier: MIT
#pragma once

#include "model/device_info.h"
#include "model/network_profile.h"

#include <QList>
#include <QString>

#include <optional>

namespace tarnwick {

/// The colours in which the header shows the connection.
enum class HeaderColor { Green, Orange, Secondary };

/// Everything that the controller publishes, as one value.
struct DaemonState {
    /// Backend state when the daemon cannot be asked, and the label of an unknown one.
    static QString stoppedStatus();

    bool isConnected = false;
    QString backendState = stoppedStatus(); ///< The daemon's own word, such as "Running".
    QString ipAddress;
    QString hostname;
    QList<DeviceInfo> devices;
    QList<NetworkProfile> profiles;
    std::optional<QString> errorMessage; ///< Text of the last failure, as the tool printed it.
    bool daemonInstalled = false;

    bool operator==(const DaemonState&) const = default;

    QString statusLabel() const;
    HeaderColor headerColor() const;
};

} // namespace tarnwick
