// SPDX-License-Identifier: MIT
#include "daemon/remembered_details.h"

#include <QSet>
#include <QSettings>

#include <algorithm>

namespace tarnwick {

RememberedDetails::RememberedDetails(std::unique_ptr<QSettings> settings)
    : store_(std::move(settings)) {}

QList<NetworkProfile> RememberedDetails::enrich(QList<NetworkProfile> list) const {
    const ProfileDetailsMap remembered = store_.load();
    for (NetworkProfile& profile : list) {
        const auto details = remembered.constFind(profile.id);
        if (details == remembered.constEnd())
            continue;
        profile.ipAddress = details->ipAddress;
        profile.hostname = details->hostname;
    }
    return list;
}

bool RememberedDetails::rememberCurrent(const QList<NetworkProfile>& list,
                                        const NetworkProfileDetails& details) {
    if (details.ipAddress.isEmpty() && details.hostname.isEmpty())
        return false;
    const auto id = currentIn(list);
    if (!id)
        return false;
    ProfileDetailsMap remembered = store_.load();
    remembered.insert(*id, details);
    store_.save(remembered);
    if (pendingProfile_ == id)
        pendingProfile_.reset();
    return true;
}

void RememberedDetails::forget(const QString& id) {
    ProfileDetailsMap remembered = store_.load();
    remembered.remove(id);
    store_.save(remembered);
}

void RememberedDetails::prune(const QList<NetworkProfile>& list) {
    QSet<QString> ids;
    for (const NetworkProfile& profile : list)
        ids.insert(profile.id);
    ProfileDetailsMap remembered = store_.load();
    const auto removed =
        remembered.removeIf([&ids](const auto& entry) { return !ids.contains(entry.key()); });
    if (removed > 0)
        store_.save(remembered);
}

// Right after a switch the tool's list may not mark a current profile yet.
std::optional<QString> RememberedDetails::currentIn(const QList<NetworkProfile>& list) const {
    auto found = std::ranges::find_if(list, &NetworkProfile::isCurrent);
    if (found == list.end() && pendingProfile_)
        found = std::ranges::find(list, *pendingProfile_, &NetworkProfile::id);
    return found == list.end() ? std::nullopt : std::optional(found->id);
}

} // namespace tarnwick
