// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"

#include <QSet>

#include <algorithm>

namespace tarnwick {

QList<NetworkProfile> DaemonManager::enrichProfiles(QList<NetworkProfile> list) const {
    const ProfileDetailsMap remembered = details_.load();
    for (NetworkProfile& profile : list) {
        const auto details = remembered.constFind(profile.id);
        if (details == remembered.constEnd())
            continue;
        profile.ipAddress = details->ipAddress;
        profile.hostname = details->hostname;
    }
    return list;
}

void DaemonManager::rememberCurrentProfileDetails(const QString& address, const QString& name) {
    if (address.isEmpty() && name.isEmpty())
        return;
    const auto id = profileToRememberFor();
    if (!id)
        return;
    ProfileDetailsMap remembered = details_.load();
    remembered.insert(*id, {address, name});
    details_.save(remembered);
    if (pendingCurrentProfileID_ == id)
        pendingCurrentProfileID_.reset();
    published_.set(&DaemonState::profiles, enrichProfiles(state().profiles));
}

// Right after a switch the tool's list may not mark a current profile yet; then it is the one that
// was switched to.
std::optional<QString> DaemonManager::profileToRememberFor() const {
    const QList<NetworkProfile>& list = state().profiles;
    auto found = std::find_if(list.begin(), list.end(),
                              [](const NetworkProfile& profile) { return profile.isCurrent; });
    if (found == list.end()) {
        found = std::find_if(list.begin(), list.end(), [this](const NetworkProfile& profile) {
            return profile.id == pendingCurrentProfileID_;
        });
    }
    return found == list.end() ? std::nullopt : std::optional(found->id);
}

void DaemonManager::pruneProfileDetails(const QList<NetworkProfile>& keeping) {
    QSet<QString> ids;
    for (const NetworkProfile& profile : keeping)
        ids.insert(profile.id);
    ProfileDetailsMap remembered = details_.load();
    const auto removed =
        remembered.removeIf([&ids](const auto& entry) { return !ids.contains(entry.key()); });
    if (removed > 0)
        details_.save(remembered);
}

} // namespace tarnwick
