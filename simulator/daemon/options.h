// SPDX-License-Identifier: MIT
#pragma once

#include "core/fault_table.h"

#include <QString>

#include <string>
#include <vector>

namespace tarnwick::simulator {

/// The daemon's command line.
struct Options {
    QString statePath; ///< empty: nothing is kept
    std::string socketPath = "/var/run/tarnwick.sock";
    QString tun = QStringLiteral("tarnwick0");
    QString worldPath; ///< empty: the built-in world
    FaultTable faults;
    bool help = false;
    bool printWorld = false;
    std::string problem; ///< what is wrong with the command line; empty: nothing

    static Options parse(const std::vector<std::string>& arguments);

    /// What `--help` prints.
    static const char* usage();
};

} // namespace tarnwick::simulator
