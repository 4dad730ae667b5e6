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
    return true;
}

bool RefreshBookkeeping::end() {
    isRefreshing_ = false;
    return std::exchange(pendingForceProfileRefresh_, false);
}

bool RefreshBookkeeping::isProfileListOld(Clock::time_point now) const {
    return !lastProfileRefresh_ || now - *lastProfileRefresh_ >= profileRefreshInterval_;
}

} // namespace tarnwick
