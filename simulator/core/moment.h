// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace tarnwick::simulator {

/// When something happens, on both clocks. Given to whatever depends on time, which therefore can
/// be run without waiting.
struct Moment {
    std::chrono::milliseconds sinceStart{0}; ///< of the daemon, on a steady clock
    std::chrono::milliseconds sinceEpoch{0}; ///< of 1970, on the wall clock
};

} // namespace tarnwick::simulator
