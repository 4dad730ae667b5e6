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

} // namespace tarnwick
