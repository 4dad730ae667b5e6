// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <optional>

namespace tarnwick::simulator {

/// One way for a command to go wrong.
struct Fault {
    enum class Kind { Hang, Slow, Garbage, Flood, Error, Crash };

    Kind kind = Kind::Error;
    std::chrono::milliseconds delay{0}; ///< of `Slow`

    /// "hang", "slow:SECONDS", "garbage", "flood", "error" or "crash"; nothing for other texts.
    static std::optional<Fault> parse(const QString& text);

    /// The text that `parse` reads.
    QString toString() const;
};

} // namespace tarnwick::simulator
