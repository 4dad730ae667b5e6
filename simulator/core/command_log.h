// SPDX-License-Identifier: MIT
#pragma once

#include "core/command.h"
#include "core/faults.h"
#include "core/moment.h"
#include "protocol/messages.h"

#include <QByteArray>
#include <QByteArrayList>

#include <optional>

namespace tarnwick::simulator {

/// What the daemon was asked to do, for tests to check a client by. Kept in memory only, since it
/// holds auth keys in plain text; the oldest entries are dropped when it grows too large.
class CommandLog {
public:
    void add(const Command& command, const QByteArrayList& arguments,
             const std::optional<Fault>& fault, const Reply& reply, Moment now, int open);

    /// One JSON object a line.
    QByteArray text() const { return lines_.join(); }

    /// Drops all entries; the numbering goes on.
    void clear();

private:
    QByteArrayList lines_;
    qsizetype bytes_ = 0;
    qint64 sequence_ = 0;
};

} // namespace tarnwick::simulator
