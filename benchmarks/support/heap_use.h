// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick::bench {

/// What the process has allocated and not freed, in KiB.
double heapKiB();

} // namespace tarnwick::bench
