// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick::simulator {

/// Where the daemon stands.
enum class BackendState { NeedsLogin, Stopped, Starting, Running };

/// The state's name as `status --json` prints it.
QString toString(BackendState state);

} // namespace tarnwick::simulator
