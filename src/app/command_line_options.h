// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace tarnwick {

/// What the program was asked to do on its command line.
struct CommandLineOptions {
    enum class Action { Run, ShowHelp, ShowVersion, InstallDaemon, Refuse };

    Action action = Action::Run;
    QString error; ///< Why the command line is refused.

    /// Reads the arguments that follow the program's name. They are looked at before Qt is started,
    /// so that "--help" works without a display.
    static CommandLineOptions parse(const QStringList& arguments);

    static QString helpText();
};

} // namespace tarnwick
