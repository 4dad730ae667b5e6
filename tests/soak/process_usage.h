// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick::soak {

/// What this process holds, as the kernel reports it.
struct ProcessUsage {
    int descriptors = 0;
    int threads = 0;
    int children = 0; ///< Ended ones that nobody has waited for included.
    long privateKiB = 0;

    static ProcessUsage now();
};

} // namespace tarnwick::soak
