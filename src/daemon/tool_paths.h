// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <QString>

namespace tarnwick {

/// The daemon's command-line tool, and the daemon that an installation would copy.
struct ToolPaths {
    QString cliPath;
    QString daemonPath;

    bool operator==(const ToolPaths&) const = default;

    /// The copies that an installation puts in place, whether they exist or not.
    static ToolPaths installed(const Platform& platform);

    /// Chooses the installed copies, else those beside this program in `bundleDir`, else a
    /// developer's build below `homeDir`. `machine` is the processor as `uname` names it.
    static ToolPaths resolve(const Platform& platform, const QString& machine,
                             const QString& bundleDir, const QString& homeDir);

    /// Whether both files exist.
    bool exist() const;
};

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
