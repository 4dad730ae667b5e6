// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tarnwick::simulator {

/// Runs one command line (without the program's name): asks the daemon and does what it answers.
/// Returns the exit status. Does not return at all when the daemon asks it to flood or to crash.
int runTool(std::vector<std::string> arguments);

} // namespace tarnwick::simulator
