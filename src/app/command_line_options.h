// SPDX-License-Identifier: MIT
#pragma once

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

} // namespace tarnwick
