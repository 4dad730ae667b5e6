// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// Where the daemon's socket is, and the directory that the client keeps for itself.
struct DaemonPaths {
    QString homeDir;
    QString systemSocket;

    /// The per-user state directory. Creates it; a failure shows up where it is used.
    QString stateDir() const;

    /// The system-wide daemon's socket when there is one, else the per-user one. Looks afresh at
    /// every call, for a daemon may come and go.
    QString socketPath() const;
};

} // namespace tarnwick
