// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

// What the program reports to whoever looks for a fault. Silent unless QT_LOGGING_RULES asks for
// it, as with "tarnwick.*=true". No category ever gets an auth key.

namespace tarnwick {

Q_DECLARE_LOGGING_CATEGORY(toolLog)    ///< tarnwick.tool: each run of the tool, and its outcome.
Q_DECLARE_LOGGING_CATEGORY(daemonLog)  ///< tarnwick.daemon: what the controller makes of it.
Q_DECLARE_LOGGING_CATEGORY(desktopLog) ///< tarnwick.desktop: the session's tray, bus and windows.

} // namespace tarnwick
