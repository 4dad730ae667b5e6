// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Makes a pipe whose two ends are closed in every child and are none of the standard streams.
/// Returns 0, or an errno value with both ends left at -1. Any thread.
int makePipe(int (&ends)[2]);

} // namespace tarnwick
