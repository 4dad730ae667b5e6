// SPDX-License-Identifier: MIT
#pragma once

#include "core/auth_key.h"
#include "core/network.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tarnwick::simulator {

/// All that exists outside this device: networks, accounts, peers and auth keys, and the pace at
/// which things happen.
struct World {
    QString version;
    quint32 seed = 1;
    double startingSeconds = 2.0; ///< how long the daemon is "Starting"
    double churnSeconds = 20.0;   ///< how often peers may come and go; 0: never
    QList<Network> networks;
    QList<AuthKey> authKeys;

    /// The network of that name, or null.
    const Network* network(const QString& name) const;

    /// The auth key of that text, or null.
    const AuthKey* authKey(const QString& key) const;

    /// The bytes of the world that a daemon without `--world` lives in.
    static QByteArray builtIn();
};

} // namespace tarnwick::simulator
