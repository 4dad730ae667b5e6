// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

namespace tarnwick::fuzz {

/// Ends the run with a finding unless `holds`.
inline void require(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "violated: %s\n", property);
    std::abort();
}

} // namespace tarnwick::fuzz
