// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tarnwick::simulator {

/// What `--help` prints.
std::string_view usage();

/// Whether the tool has a command of this name; asked before the daemon is bothered with it.
bool isKnownCommand(std::string_view name);

} // namespace tarnwick::simulator
