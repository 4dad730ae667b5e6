// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Whether what is translucent in a window lets the eye see through. Only an X server without a
/// compositor shows black there.
bool isScreenComposited();

} // namespace tarnwick
