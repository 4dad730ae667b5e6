// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cmath>
#include <optional>

namespace tarnwick::simulator {

/// The current time on both clocks. Passed to whatever depends on time, so that tests need not
/// wait.
struct Moment {
    std::chrono::milliseconds sinceStart{0}; ///< of the daemon, on a steady clock
    std::chrono::milliseconds sinceEpoch{0}; ///< of 1970, on the wall clock
};

/// A time span given in seconds; nothing unless it is between 0 and a year, which rules out
/// overflow.
inline std::optional<std::chrono::milliseconds> timeSpan(double seconds) {
    constexpr double maximumSeconds = 31'536'000;
    if (!(seconds >= 0 && seconds <= maximumSeconds)) // false for NaN, too
        return std::nullopt;
    return std::chrono::milliseconds(std::llround(seconds * 1000));
}

} // namespace tarnwick::simulator
