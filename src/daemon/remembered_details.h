// SPDX-License-Identifier: MIT
#pragma once

#include "model/network_profile.h"
#include "model/profile_details_store.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace tarnwick {

/// The address and host name that this machine last had in each network, by the network's profile.
///
/// They outlive the program. Main thread only; nothing reports an error.
class RememberedDetails {
public:
    explicit RememberedDetails(std::unique_ptr<QSettings> settings);

    /// `list` with the details of each profile that any are remembered of.
    QList<NetworkProfile> enrich(QList<NetworkProfile> list) const;

    /// A switch to that profile has been asked for: it counts as the current one in a list that
    /// marks none, until its details are remembered.
    void setPendingProfile(const QString& id) { pendingProfile_ = id; }

    /// Remembers the details of the current profile in `list`; false when there is none, or
    /// nothing to remember.
    bool rememberCurrent(const QList<NetworkProfile>& list, const NetworkProfileDetails& details);

    void forget(const QString& id);

    /// Forgets every profile that is not in `list`: those that are gone.
    void prune(const QList<NetworkProfile>& list);

private:
    std::optional<QString> currentIn(const QList<NetworkProfile>& list) const;

    ProfileDetailsStore store_;
    std::optional<QString> pendingProfile_;
};

} // namespace tarnwick
