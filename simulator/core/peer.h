// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace tarnwick::simulator {

/// Another device of a network.
struct Peer {
    QString hostName;
    QString dnsName; ///< with its dots; made from the host name when the world gives none
    QString nodeKey;
    QString os;
    QString user; ///< an account's login
    QStringList addresses;
    bool online = true; ///< at the start
    bool churn = true;  ///< comes and goes afterwards
    bool guest = false; ///< is listed only while it is online
};

} // namespace tarnwick::simulator
