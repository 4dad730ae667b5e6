// SPDX-License-Identifier: MIT
#pragma once

#include "model/network_profile.h"
#include "model/profile_details_store.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace tarnwick {

/// Finds the profile that the address and host name of a status belong to.
///
/// Status and list come from two runs of the tool, and the network may be switched at any time, by
/// a command of ours or by somebody else. Details that end up under another profile's id are lost
/// for good, so where both runs may have met different networks there is no answer: the next
/// refresh reads the list again and settles it.
///
/// Main thread only.
class ProfileAttribution {
public:
    /// A switch was queued: in a list that marks no profile, that one counts as the current one in
    /// refreshes that begin later.
    void switchWasQueued(const QString& id);

    /// A log-in was queued, which makes some profile the current one.
    void logInWasQueued();

    void refreshBegins();

    /// The list was read in this refresh, after its status.
    void listWasRead(const QList<NetworkProfile>& list);

    /// Details whose profile is known from the list that was read last. A status with others needs
    /// a new list.
    const std::optional<NetworkProfileDetails>& settledDetails() const { return settled_; }

    /// The profile in `list` that the `details` of this refresh's status belong to, if that is
    /// certain and there is one.
    std::optional<QString> ownerOf(const NetworkProfileDetails& details,
                                   const QList<NetworkProfile>& list);

    /// The details of that profile are stored: a switch to it is no longer pending.
    void detailsWereRemembered(const QString& id);

private:
    bool isCertain(const NetworkProfileDetails& details) const;

    bool wasCommandQueued() const { return commandsBeforeList_ != commandsAtRefresh_; }

    /// How many commands of ours after which another profile may be the current one were queued.
    int commands_ = 0;
    int commandsAtRefresh_ = 0;  ///< As this refresh began.
    int commandsAtList_ = 0;     ///< As the refresh that read the last list began.
    int commandsBeforeList_ = 0; ///< The same of the list before it.

    std::optional<QString> pending_;
    std::optional<QString> pendingAtRefresh_;

    bool hasReadList_ = false;            ///< In this refresh.
    std::optional<QString> marked_;       ///< By the last list; "" by one that marks no profile.
    std::optional<QString> markedBefore_; ///< By the list before it.
    std::optional<NetworkProfileDetails> settled_;
};

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
