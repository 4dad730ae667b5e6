// SPDX-License-Identifier: MIT
#pragma once

#include "core/names.h"

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

namespace tarnwick::simulator {

/// One log-in of this device.
struct Profile {
    QString id;
    QString network;
    QString account;
    QString hostName; ///< of this device in that network
    QString controlUrl;
    qint64 expiresAt = 0; ///< milliseconds since 1970 at which the log-in expires; 0: never

    static Profile fromJson(const QJsonObject& object);
    QJsonObject toJson() const;
};

/// What the daemon keeps across restarts, in a file unless the path is empty. An error in reading
/// or writing it is reported on standard error; the daemon goes on with what it has in memory.
struct State {
    QList<Profile> profiles;
    QString currentId; ///< empty: there is no current one
    bool wantRunning = false;
    QStringList usedKeys; ///< digests of the one-time keys that have been used

    const Profile* profile(const QString& id) const { return find(profiles, &Profile::id, id); }

    const Profile* current() const { return profile(currentId); }

    /// What was saved last; the state of a new daemon if there is nothing usable.
    static State load(const QString& path);

    /// Replaces the file atomically, so that a crash leaves either the old one or the new one.
    void save(const QString& path) const;
};

} // namespace tarnwick::simulator
