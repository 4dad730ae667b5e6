// SPDX-License-Identifier: MIT
#include "platform/logging.h"

namespace tarnwick {

Q_LOGGING_CATEGORY(toolLog, "tarnwick.tool", QtWarningMsg)
Q_LOGGING_CATEGORY(daemonLog, "tarnwick.daemon", QtWarningMsg)
Q_LOGGING_CATEGORY(desktopLog, "tarnwick.desktop", QtWarningMsg)

} // namespace tarnwick
