// SPDX-License-Identifier: MIT
#pragma once

#include "core/moment.h"

namespace tarnwick::simulator::test {

/// A moment so many seconds after the daemon's start, on both clocks.
inline Moment at(double seconds) {
    const auto span = std::chrono::milliseconds(static_cast<long long>(seconds * 1000));
    return {span, std::chrono::milliseconds(1'700'000'000'000) + span};
}

} // namespace tarnwick::simulator::test
