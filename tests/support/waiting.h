// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace tarnwick::test {

/// Runs the event loop until `condition` holds; false when it does not within `limit`, which is
/// generous: it only bounds a test that fails.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds limit = std::chrono::seconds(20));

/// Runs the event loop for `duration`, for what must not happen.
void runEventLoopFor(std::chrono::milliseconds duration);

} // namespace tarnwick::test
