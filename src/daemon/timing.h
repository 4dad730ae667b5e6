// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace tarnwick {

/// Every interval, time limit and pause of the controller. Tests run the same code with short ones.
struct Timing {
    using Milliseconds = std::chrono::milliseconds;

    Milliseconds statusPollInterval{5000};
    Milliseconds profileRefreshInterval{30000}; ///< Age at which the profile list is re-read.

    Milliseconds commandTimeout{12000};
    Milliseconds loginTimeout{30000};
    Milliseconds probeTimeout{5000}; ///< Limit of the question whether the daemon is alive.
    Milliseconds pollStep{500};      ///< How often a running child is checked: it costs two
                                     ///< wake-ups a second, and an answer half a second at most.

    Milliseconds switchPause{800};       ///< From switching the profile to bringing it up.
    Milliseconds daemonStartPause{3000}; ///< Lets a started daemon open its socket.
    Milliseconds refreshAfterInstall{2000};

    /// How long commands that still wait as the program is left are kept in order: each is started
    /// once the one before has ended or this is over.
    Milliseconds leavingTimeout{400};
};

} // namespace tarnwick
