// SPDX-License-Identifier: MIT
#pragma once

#include <QProcessEnvironment>
#include <QString>

namespace tarnwick {

/// Files by which the program finds the instance that already runs in the same session.
struct SessionPaths {
    QString lock;
    QString socket;

    /// Paths in `runtimeDir`, which only the user can enter. Sessions of the same user differ in
    /// their display.
    static SessionPaths in(const QString& runtimeDir, const QProcessEnvironment& environment);

    /// The paths for this process's environment.
    static SessionPaths ofThisSession();
};

} // namespace tarnwick
