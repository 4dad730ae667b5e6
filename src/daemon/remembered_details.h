// SPDX-License-Identifier: MIT
#pragma once

#include "model/network_profile.h"
#include "model/profile_details_store.h"

#include <QList>
#include <QString>

#include <memory>

namespace tarnwick {

/// The address and host name that this machine last had in each network, by the network's profile.
///
/// They outlive the program. Main thread only; nothing reports an error.
class RememberedDetails {
public:
    RememberedDetails(std::unique_ptr<QSettings> settings, const QString& key);

    /// `list` with the details of each profile that any are remembered of.
    QList<NetworkProfile> enrich(QList<NetworkProfile> list) const;

    /// Remembers the details of a profile; false when both are empty, which is nothing to remember.
    bool remember(const QString& id, const NetworkProfileDetails& details);

    void forget(const QString& id);

    /// Forgets every profile that is not in `list`: those that are gone.
    void prune(const QList<NetworkProfile>& list);

private:
    ProfileDetailsStore store_;
};

} // namespace tarnwick
