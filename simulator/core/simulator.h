// SPDX-License-Identifier: MIT
#pragma once

#include "core/command_log.h"
#include "core/engine.h"
#include "core/fault_table.h"
#include "core/peer_churn.h"

#include <QString>

#include <string>
#include <vector>

namespace tarnwick::simulator {

/// The daemon without its socket: one command line in, one reply out. Never throws, whatever the
/// arguments; may be called with requests of any origin.
class Simulator {
public:
    Simulator(World world, StateStore store, FaultTable faults, QString tun);

    /// `open` is the number of commands under way, this one included, for the log.
    Reply handle(const std::vector<std::string>& arguments, Moment now, int open = 1);

private:
    Reply carryOut(const Command& command, Moment now);
    Reply status(bool asJson, Moment now) const;
    Reply setFaults(const QStringList& specs);
    Reply describe(Moment now) const;

    Engine engine_;
    PeerChurn churn_;
    FaultTable faults_;
    CommandLog log_;
    QString tun_;
};

} // namespace tarnwick::simulator
