// SPDX-License-Identifier: MIT
#pragma once

#include <QProcessEnvironment>
#include <QString>

namespace tarnwick {

/// Files through which the copies of the program in one user's session know of each other.
struct SessionPaths {
    QString lock;
    QString socket;

    /// Paths in `runtimeDir`, which only the user can enter. A session is told from another of the
    /// same user by its display.
    static SessionPaths in(const QString& runtimeDir, const QProcessEnvironment& environment);

    /// Those of this process.
    static SessionPaths ofThisSession();
};

} // namespace tarnwick
