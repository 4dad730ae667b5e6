// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QString>
#include <QStringList>

namespace tarnwick::simulator {

/// One command line, parsed.
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
        Wrong,  ///< not a valid command; `problem` says why
        Faults, ///< this and the next three exist in the simulator only
        Log,
        ClearLog,
        State,
    };

    Kind kind = Kind::Wrong;
    QString id{}; ///< of the profile to switch to or to remove
    QString loginServer{};
    QString authKey{};
    QString hostName{};
    QStringList faults{}; ///< the SPECs to set; empty: show them
    QString problem{};

    static Command parse(const QByteArrayList& arguments);

    /// The command's name in faults and in the log; "" if only the simulator has it.
    QString name() const;

    /// Whether faults can be set for a command of this name.
    static bool isName(const QString& name);
};

} // namespace tarnwick::simulator
