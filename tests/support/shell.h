// SPDX-License-Identifier: MIT
#pragma once

#include "platform/child_process.h"

#include <QByteArray>

namespace tarnwick::test {

/// Starts `command` in this process's environment.
ChildProcess startChild(const CommandLine& command,
                        ChildProcess::Output output = ChildProcess::Output::Captured);

/// The command line that runs `script` with sh.
CommandLine shell(const char* script);

/// Runs `command` to its end, within a generous limit, and returns what it printed.
QByteArray outputOf(const CommandLine& command);

/// How many descriptors this process has open.
qsizetype openDescriptors();

/// How many children this process has, those included that have ended and wait to be reaped.
int childCount();

/// How many of them have ended and wait to be reaped.
int zombieCount();

/// Whether valgrind runs this process. It makes a fork of the vfork within posix_spawn(), so that
/// why a program could not be started is never heard of.
bool runsUnderValgrind();

} // namespace tarnwick::test
