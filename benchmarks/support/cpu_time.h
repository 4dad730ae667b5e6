// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick::bench {

/// CPU seconds that this process has used, its children that have been waited for included.
double cpuSecondsWithChildren();

} // namespace tarnwick::bench
