// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

#include <QDir>

#include <memory>

namespace tarnwick::pictures {

/// Paints the auth-key window and the update dialog in their states, or the one named `only`, into
/// the folder; false when one could not be saved.
bool paintWindows(const std::shared_ptr<DaemonManager>& daemon, const QDir& folder, bool isDark,
                  const QString& only);

} // namespace tarnwick::pictures
