// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace tarnwick::simulator {

/// What the daemon tells the tool to do: print two texts and exit, or misbehave.
struct Reply {
    enum class Kind {
        Text,  ///< print `out` and `err`, exit with `exitStatus`
        Flood, ///< print `out` again and again, for ever
        Crash, ///< die by a signal
        Hang,  ///< no answer at all; never sent, the connection just stays open
    };

    Kind kind = Kind::Text;
    int exitStatus = 0;
    std::string out{};
    std::string err{};
    /// How long the daemon keeps a finished answer back. Not sent.
    std::chrono::milliseconds delay{0};

    static Reply text(std::string output) { return {.out = std::move(output)}; }

    static Reply failure(std::string sentence) {
        return {.exitStatus = 1, .err = std::move(sentence)};
    }
};

} // namespace tarnwick::simulator
