// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace tarnwick {

/// Runs `work` on the main thread, in a later turn of its event loop, in the order posted. Any
/// thread. Once the application object is gone the work is dropped.
void postToMainQueue(std::function<void()> work);

} // namespace tarnwick
