// SPDX-License-Identifier: MIT
#pragma once

#include "platform/command_line.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace tarnwick {

class CommandRunner;

/// What a command does on the work queue: runs the tool, and returns the output in which a failure
/// shows. Made of values only.
using ToolWork = std::function<QByteArray(const CommandRunner&)>;

/// The user's commands, each as the work that carries it out.
struct ConnectionCommands {
    static ToolWork connect();
    static ToolWork disconnect();
    static ToolWork switchProfile(const QString& id);
    static ToolWork removeProfile(const QString& id);

    /// Starts a stopped daemon with `nudgeDaemon` and logs in, under the device name without blanks
    /// if any of it is left.
    static ToolWork logIn(const QString& authKey, const QString& deviceName,
                          const CommandLine& nudgeDaemon);
};

/// The control server that a device of this name logs in to: the development one when the name,
/// without surrounding blanks and in lower case, begins with "dev-". Any thread.
QString loginServer(const QString& deviceName);

} // namespace tarnwick
