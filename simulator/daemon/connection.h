// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/descriptor.h"
#include "protocol/reply.h"
#include "protocol/request_parser.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick::simulator {

/// One tool at the other end of the socket: its request, then the answer, then good-bye.
/// Never blocks.
class Connection {
public:
    using Time = std::chrono::steady_clock::time_point;

    enum class Phase {
        Asking,    ///< its request is not complete
        Waiting,   ///< its answer is held back, by a fault
        Answering, ///< its answer is being written
        Over,
    };

    /// Who says nothing for this long, asking or taking an answer, is hung up on.
    static constexpr std::chrono::seconds patience{10};

    Connection(Descriptor descriptor, Time now);

    int descriptor() const { return descriptor_.get(); }

    Phase phase() const { return phase_; }

    Time since() const { return since_; }

    /// The events to poll for.
    short events() const;

    /// When to call `tick`, if nothing happens before.
    std::optional<Time> deadline() const;

    /// Reads what there is. Returns true when that completed the request, which `answer` must
    /// follow.
    bool read(Time now);

    /// The parser that holds the request, complete or malformed.
    const RequestParser& request() const { return parser_; }

    void answer(const Reply& reply, Time now);
    void write(Time now);
    void tick(Time now);

private:
    void startAnswering(Time now);

    Descriptor descriptor_;
    Phase phase_ = Phase::Asking;
    RequestParser parser_;
    std::string bytes_; // of the answer, not yet written
    std::optional<Time> answerAt_;
    Time since_;
};

} // namespace tarnwick::simulator
