// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick::simulator {

/// A key that logs this device in to one network as one account, if its state allows.
struct AuthKey {
    enum class State { Good, Expired, Used };

    QString key;
    QString network;
    QString account;
    State state = State::Good;
    bool once = false;         ///< good for one log-in only
    double nodeKeySeconds = 0; ///< how long the log-in lasts; 0: for ever
};

} // namespace tarnwick::simulator
