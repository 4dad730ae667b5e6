// SPDX-License-Identifier: MIT
#include "desktop/startup_completion.h"
#include "desktop/x11_linux.h"

namespace tarnwick {

void completeStartup(const QByteArray& token) {
    QByteArray quoted = token;
    quoted.replace('\\', "\\\\").replace('"', "\\\"");
    if (!token.isEmpty())
        X11Display().broadcast("_NET_STARTUP_INFO", "remove: ID=\"" + quoted + '"');
}

} // namespace tarnwick
