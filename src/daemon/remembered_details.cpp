// SPDX-License-Identifier: MIT
#include "daemon/remembered_details.h"

#include <QSet>
#include <QSettings>

namespace tarnwick {

RememberedDetails::RememberedDetails(std::unique_ptr<QSettings> settings, const QString& key)
    : store_(std::move(settings), key) {}

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

bool RememberedDetails::remember(const QString& id, const NetworkProfileDetails& details) {
    if (details.ipAddress.isEmpty() && details.hostname.isEmpty())
        return false;
    ProfileDetailsMap remembered = store_.load();
    remembered.insert(id, details);
    store_.save(remembered);
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

} // namespace tarnwick
