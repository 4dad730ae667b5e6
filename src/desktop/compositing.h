// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Whether a window may have translucent parts. Only an X server without a compositor shows them
/// black.
bool isScreenComposited();

} // namespace tarnwick
