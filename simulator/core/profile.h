// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick::simulator {

/// One log-in of this device, kept across restarts.
struct Profile {
    QString id;
    QString network;
    QString account;
    QString hostName; ///< of this device in that network
    QString controlUrl;
    qint64 expiresAt = 0; ///< milliseconds since 1970 at which the log-in lapses; 0: never
};

} // namespace tarnwick::simulator
