// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

#include <QDir>

#include <memory>

namespace tarnwick::pictures {

/// Paints a session step by step, from the first click on the icon to a disconnected machine, into
/// session.png in the folder; false when it could not be saved.
bool paintSession(const std::shared_ptr<DaemonManager>& daemon, const QDir& folder);

} // namespace tarnwick::pictures
