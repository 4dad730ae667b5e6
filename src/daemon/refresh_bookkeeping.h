// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <utility>

namespace tarnwick {

/// Which refresh requests run, and what a refresh reads: at most one at a time, any number of
/// forced requests meanwhile become one more afterwards, and the profile list is re-read when it
/// is forced, empty or old.
///
/// Main thread only; that alone keeps refreshes apart.
class RefreshBookkeeping {
public:
    using Clock = std::chrono::steady_clock; // a clock that the user sets must not matter

    explicit RefreshBookkeeping(std::chrono::milliseconds profileRefreshInterval)
        : profileRefreshInterval_(profileRefreshInterval) {}

    /// Starts a refresh unless one is running; returns whether it has started.
    bool begin(bool forceProfiles) {
        if (isRefreshing_) {
            pendingForceProfileRefresh_ = pendingForceProfileRefresh_ || forceProfiles;
            return false;
        }
        isRefreshing_ = true;
        return true;
    }

    /// Whether the refresh that has started re-reads the profiles. `now` is asked only when the
    /// other reasons do not hold.
    template <typename Now>
    bool shouldReadProfiles(bool forceProfiles, bool isListEmpty, Now now) const {
        return forceProfiles || isListEmpty || isProfileListOld(now());
    }

    void profilesWereRead(Clock::time_point now) { lastProfileRefresh_ = now; }

    /// Ends the refresh; returns whether a forced one has to follow.
    bool end() {
        isRefreshing_ = false;
        return std::exchange(pendingForceProfileRefresh_, false);
    }

    bool isRefreshing() const { return isRefreshing_; }

private:
    bool isProfileListOld(Clock::time_point now) const {
        return !lastProfileRefresh_ || now - *lastProfileRefresh_ >= profileRefreshInterval_;
    }

    bool isRefreshing_ = false;
    bool pendingForceProfileRefresh_ = false;
    std::optional<Clock::time_point> lastProfileRefresh_; ///< None: in the distant past.
    std::chrono::milliseconds profileRefreshInterval_;
};

} // namespace tarnwick
