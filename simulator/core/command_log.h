// SPDX-License-Identifier: MIT
#pragma once

#include "core/command.h"
#include "core/fault.h"
#include "core/moment.h"
#include "protocol/reply.h"

#include <QByteArrayList>

#include <optional>
#include <string>
#include <vector>

namespace tarnwick::simulator {

/// The daemon's account of what it was asked, by which tests judge a client. Kept in memory only,
/// since it holds auth keys as they were given; the oldest entries go when it grows too large.
class CommandLog {
public:
    void add(const Command& command, const std::vector<std::string>& arguments,
             const std::optional<Fault>& fault, const Reply& reply, Moment now, int open);

    /// One JSON object a line.
    std::string text() const;

    /// Forgets all entries; numbering goes on.
    void clear();

private:
    QByteArrayList lines_;
    qsizetype bytes_ = 0;
    qint64 sequence_ = 0;
};

} // namespace tarnwick::simulator
