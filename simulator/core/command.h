// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace tarnwick::simulator {

/// One command line, understood.
struct Command {
    enum class Kind {
        Status,
        StatusJson,
        List,
        Switch,
        Up,
        Down,
        Login,
        Remove,
        Faults, ///< of the simulator only, as the next three
        Log,
        ClearLog,
        State,
        Wrong, ///< not understood; `problem` says why
    };

    Kind kind = Kind::Wrong;
    QString id{}; ///< of the profile to switch to or to remove
    QString loginServer{};
    QString authKey{};
    QString hostName{};
    QStringList faults{}; ///< the SPECs to set; empty: show them
    std::string problem{};

    static Command parse(const std::vector<std::string>& arguments);

    /// The name by which faults and the log call this command; "" for what only a simulator has.
    QString name() const;

    /// Whether a command has this name.
    static bool isName(const QString& name);
};

} // namespace tarnwick::simulator
