// SPDX-License-Identifier: MIT
#include "daemon/daemon_state.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

QString DaemonState::stoppedStatus() {
    return u"Stopped"_s;
}

QString DaemonState::statusLabel() const {
    if (isConnected)
        return u"Connected"_s;
    if (backendState == "Running"_L1 || backendState == "Starting"_L1)
        return u"Connecting..."_s;
    if (backendState == "NeedsLogin"_L1)
        return u"Needs Login"_s;
    if (backendState == "NoState"_L1 || backendState.isEmpty())
        return stoppedStatus();
    return backendState;
}

HeaderColor DaemonState::headerColor() const {
    if (isConnected)
        return HeaderColor::Green;
    const bool isUnderWay = backendState == "Running"_L1 || backendState == "Starting"_L1 ||
                            backendState == "NeedsLogin"_L1;
    return isUnderWay ? HeaderColor::Orange : HeaderColor::Secondary;
}

} // namespace tarnwick
