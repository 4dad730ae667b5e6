// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tarnwick::simulator {

/// Runs the daemon with these arguments (without the program's name) until SIGTERM or SIGINT.
/// Returns the exit status.
int runDaemon(const std::vector<std::string>& arguments);

} // namespace tarnwick::simulator
