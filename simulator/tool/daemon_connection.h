// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tarnwick::simulator {

/// One question to the daemon over its socket. Blocks for as long as the daemon likes: whoever runs
/// the tool has a time limit of its own.
class DaemonConnection {
public:
    struct Answer {
        std::string bytes{};
        std::string failure{}; ///< why the daemon could not be asked; empty when it could
    };

    static Answer ask(const std::string& socketPath, const std::vector<std::string>& arguments);
};

} // namespace tarnwick::simulator
