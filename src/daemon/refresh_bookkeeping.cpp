// SPDX-License-Identifier: MIT
#include "daemon/refresh_bookkeeping.h"

#include <utility>

namespace tarnwick {

bool RefreshBookkeeping::begin(bool forceProfiles) {
    if (isRefreshing_) {
        pendingForceProfileRefresh_ = pendingForceProfileRefresh_ || forceProfiles;
        return false;
    }
    isRefreshing_ = true;
    refreshGeneration_ = generation_;
    return true;
}

bool RefreshBookkeeping::end() {
    isRefreshing_ = false;
    return std::exchange(pendingForceProfileRefresh_, false);
}

void RefreshBookkeeping::profilesWereRead(Clock::time_point now) {
    lastProfileRefresh_ = now;
    profilesGeneration_ = refreshGeneration_;
}

bool RefreshBookkeeping::isProfileListOld(Clock::time_point now) const {
    return !lastProfileRefresh_ || now - *lastProfileRefresh_ >= profileRefreshInterval_;
}

} // namespace tarnwick
