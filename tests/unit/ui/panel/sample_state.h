// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_state.h"

namespace tarnwick::test {

inline DeviceInfo device(const QString& name, bool online = true) {
    return {QStringLiteral("key-") + name,  name,   {},
            {QStringLiteral("100.64.0.7")}, online, QStringLiteral("linux")};
}

inline QList<DeviceInfo> numberedDevices(int count) {
    QList<DeviceInfo> devices;
    for (int i = 0; i < count; ++i)
        devices.append(device(QStringLiteral("device-%1").arg(i), i % 3 != 0));
    return devices;
}

/// A profile without remembered details.
inline NetworkProfile profile(const QString& id, bool isCurrent = false) {
    return {id, QStringLiteral("net-") + id, QStringLiteral("user-") + id, isCurrent, {}, {}};
}

inline DaemonState connectedState() {
    DaemonState state;
    state.isConnected = true;
    state.backendState = QStringLiteral("Running");
    state.ipAddress = QStringLiteral("100.64.0.1");
    state.hostname = QStringLiteral("my-computer");
    state.daemonInstalled = true;
    return state;
}

/// Installed and stopped, without profiles.
inline DaemonState stoppedState() {
    DaemonState state;
    state.daemonInstalled = true;
    return state;
}

} // namespace tarnwick::test
