// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/tool_paths.h"
#include "platform/platform.h"

#include <QString>

namespace tarnwick {

/// The shell line that installs daemon, tool and job description and starts the job, to be run as
/// administrator. Paths stand in single quotes and are not escaped: one that holds a single quote
/// makes the line fail, which the user is told.
QString installLine(const Platform& platform, const ToolPaths& sources, const QString& jobFile);

} // namespace tarnwick
