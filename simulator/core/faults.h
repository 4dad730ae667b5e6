// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace tarnwick::simulator {

/// One way for a command to go wrong.
struct Fault {
    QString text; ///< "hang", "garbage", "flood", "error", "crash" or "slow:SECONDS"
    std::optional<std::chrono::milliseconds> delay; ///< of "slow" only

    /// Nothing if the text is not one of these.
    static std::optional<Fault> parse(const QString& text);
};

/// Which command goes wrong and how. A fault of one command overrides the fault of all.
class Faults {
public:
    /// Applies one SPEC: FAULT or FAULT@COMMAND, or "none" or "none@COMMAND" to remove faults.
    /// Returns false, and changes nothing, if it is not valid.
    bool set(const QString& spec);

    /// The fault of the command of this name, if it has one.
    std::optional<Fault> of(const QString& command) const;

    /// The SPECs that would set these faults.
    QStringList specs() const;

private:
    QMap<QString, Fault> faults_; // the key "" stands for all commands
};

} // namespace tarnwick::simulator
