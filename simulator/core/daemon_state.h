// SPDX-License-Identifier: MIT
#pragma once

#include "core/profile.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tarnwick::simulator {

/// What the daemon keeps across restarts.
struct DaemonState {
    QList<Profile> profiles;
    QString currentId; ///< empty: none is current
    bool wantRunning = false;
    QStringList usedKeys; ///< digests of the one-time keys that are spent

    const Profile* profile(const QString& id) const;

    const Profile* current() const { return profile(currentId); }
};

} // namespace tarnwick::simulator
