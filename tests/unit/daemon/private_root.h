// SPDX-License-Identifier: MIT
#pragma once

#include "platform/command_line.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tarnwick::test {

/// A file system of its own in which an install line runs as administrator, for real, without
/// touching this machine: this system's programs and temporary files, and else nothing.
///
/// The commands of the line are stand-ins that note how they were called and then run the real
/// one, except for those that talk to the service manager. One of them can be made to fail.
class PrivateRoot {
public:
    PrivateRoot();

    /// Whether this machine has a means to enter it.
    static bool isAvailable();

    /// The command that runs `shellLine` in it.
    CommandLine enter(const QString& shellLine) const;

    /// Makes the command that is called exactly so fail, with "refused: " and itself as its text.
    void fail(const QString& command) const;

    /// What was called, in order.
    QStringList commands() const;

    QByteArray contentOf(const QString& path) const;
    QFile::Permissions permissionsOf(const QString& path) const;

private:
    QString inside(const QString& path) const { return directory_.path() + path; }

    QTemporaryDir directory_;
};

} // namespace tarnwick::test
