// SPDX-License-Identifier: MIT
#pragma once

#include "core/command_log.h"
#include "core/engine.h"
#include "core/faults.h"

#include <QByteArrayList>
#include <QString>

namespace tarnwick::simulator {

/// The daemon without its socket: one command line in, one reply out. The command line may be
/// anything: it comes from whoever can open the socket.
class Simulator {
public:
    Simulator(World world, QString statePath, Faults faults, QString tun);

    /// `open` goes into the log: how many commands are being answered, including this one.
    Reply handle(const QByteArrayList& arguments, Moment now, int open = 1);

private:
    Reply carryOut(const Command& command, Moment now);
    Reply setFaults(const QStringList& specs);
    Reply describe(Moment now) const;

    Engine engine_;
    Faults faults_;
    CommandLog log_;
    QString tun_;
};

} // namespace tarnwick::simulator
