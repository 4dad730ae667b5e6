// SPDX-License-Identifier: MIT
#pragma once

#include "core/daemon_state.h"

#include <QJsonObject>
#include <QString>

namespace tarnwick::simulator {

/// What `switch --list` prints: a header and a line for each profile, the current one marked by
/// "*".
QString profileTable(const DaemonState& state);

/// What `status` prints: a line for each device, made from what `status --json` would print.
QString statusTable(const QJsonObject& status);

} // namespace tarnwick::simulator
