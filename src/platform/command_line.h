// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace tarnwick {

/// A program and the arguments it is given, one text each; no shell ever sees them.
struct CommandLine {
    QString program; ///< Absolute path of the executable.
    QStringList arguments;

    bool operator==(const CommandLine&) const = default;
};

} // namespace tarnwick
