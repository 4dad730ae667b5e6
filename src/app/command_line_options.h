// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

#include <QString>
#include <QStringList>

namespace tarnwick {

/// The parsed command line.
struct CommandLineOptions {
    enum class Action { Run, ShowHelp, ShowVersion, InstallDaemon, Refuse };

    Action action = Action::Run;
    QString error = {};   ///< Reason for a refusal.
    bool isQuiet = false; ///< Opens no window of its own accord.

    /// `arguments` without the program's name. Needs no application, so that "--help" works without
    /// a display.
    static CommandLineOptions parse(const QStringList& arguments);

    static QString helpText();
};

/// Installs and starts the daemon, prints the outcome and returns the exit status, 0 or 1. Blocks
/// in its own event loop; needs a QCoreApplication and no display.
int runInstallCommand(DaemonManagerOptions options = {});

} // namespace tarnwick
