// SPDX-License-Identifier: MIT
#include "daemon/remembered_details.h"

#include <QSet>
#include <QSettings>

#include <algorithm>
#include <utility>

namespace tarnwick {

namespace {

// The first of several: nothing keeps the tool from marking more than one.
std::optional<QString> markedIn(const QList<NetworkProfile>& list) {
    if (list.isEmpty())
        return std::nullopt; // a tool that failed, which says nothing
    const auto found = std::ranges::find_if(list, &NetworkProfile::isCurrent);
    return found == list.end() ? QString(QLatin1StringView("")) : found->id;
}

} // namespace

void ProfileAttribution::switchWasQueued(const QString& id) {
    ++commands_;
    pending_ = id;
}

void ProfileAttribution::logInWasQueued() {
    ++commands_;
    pending_.reset(); // which profile becomes the current one is not known
}

void ProfileAttribution::refreshBegins() {
    commandsAtRefresh_ = commands_;
    pendingAtRefresh_ = pending_;
    hasReadList_ = false;
}

void ProfileAttribution::listWasRead(const QList<NetworkProfile>& list) {
    hasReadList_ = true;
    commandsBeforeList_ = std::exchange(commandsAtList_, commandsAtRefresh_);
    markedBefore_ = std::exchange(marked_, markedIn(list));
    if (marked_ != markedBefore_)
        settled_.reset();
}

std::optional<QString> ProfileAttribution::ownerOf(const NetworkProfileDetails& details,
                                                   const QList<NetworkProfile>& list) {
    if (commandsAtList_ != commandsAtRefresh_)
        return std::nullopt; // the list is older than a command; the refresh after that reads it
    if (!isCertain(details)) {
        settled_.reset();
        return std::nullopt;
    }
    settled_ = details;
    auto owner = std::ranges::find_if(list, &NetworkProfile::isCurrent);
    if (owner == list.end() && pendingAtRefresh_)
        owner = std::ranges::find(list, *pendingAtRefresh_, &NetworkProfile::id);
    return owner == list.end() ? std::nullopt : std::optional(owner->id);
}

// The status was taken between two lists: when they agree, so does it. When they do not, a command
// of ours that was queued in between explains that, for it ran before the status.
bool ProfileAttribution::isCertain(const NetworkProfileDetails& details) const {
    if (!hasReadList_)
        return settled_ == details;
    if (!markedBefore_ || (marked_ == QLatin1StringView("") && pendingAtRefresh_))
        return true;
    if (!wasCommandQueued())
        return marked_ == markedBefore_;
    if (marked_ == markedBefore_)
        return settled_ == details;
    return !pendingAtRefresh_ || marked_ == pendingAtRefresh_;
}

void ProfileAttribution::detailsWereRemembered(const QString& id) {
    if (pending_ == id && pendingAtRefresh_ == id)
        pending_.reset();
}

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
