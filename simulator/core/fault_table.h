// SPDX-License-Identifier: MIT
#pragma once

#include "core/fault.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace tarnwick::simulator {

/// Which command goes wrong and how. A fault of one command comes before the fault of all.
class FaultTable {
public:
    /// Takes in one SPEC: FAULT or FAULT@COMMAND, or "none" or "none@COMMAND" to take faults away.
    /// Returns false, and changes nothing, when it is none of these.
    bool set(const QString& spec);

    /// The fault of a command by its name, if it has one.
    std::optional<Fault> of(const QString& command) const;

    /// The SPECs that make up this table.
    QStringList specs() const;

private:
    QMap<QString, Fault> faults_; // the key "" stands for all commands
};

} // namespace tarnwick::simulator
