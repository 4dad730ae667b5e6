// SPDX-License-Identifier: MIT
#pragma once

#include "platform/command_line.h"

#include <QString>
#include <QStringList>

namespace tarnwick {

/// One operating system as a value: all that the rest of the client needs to know about it.
///
/// Both systems' values exist on both, so that the tests on one cover the other. Paths are
/// absolute unless documented as appended to something.
struct Platform {
    QString systemName;        ///< First half of the variant suffix: "darwin" or "linux".
    QStringList arm64Machines; ///< Machine names that mean a 64-bit ARM processor.

    QString systemSocket;        ///< The system-wide daemon's socket.
    QString installDir;          ///< Where an installation puts the daemon and the tool.
    QString jobFileName;         ///< File name of the job description.
    QString jobFileText;         ///< The job description that the client carries.
    QString installedJobFile;    ///< Where an installation puts the job description.
    QString bundledJobDirectory; ///< Appended to the bundle directory; ends in "/".
    QString loadJobStep;         ///< Last step of the install line: loads the job.

    CommandLine (*authorise)(const QString& shellLine); ///< Runs a shell line as administrator.
    CommandLine nudgeDaemon;                            ///< Starts an installed, stopped daemon.

    QString settingsOrganization; ///< Where QSettings keeps the user's settings.
    QString settingsApplication;
    bool settingsAreOneFile;   ///< Rather than a service of the system that caches them.
    QString profileDetailsKey; ///< As which QSettings is asked for the remembered details.

    QString (*version)(const QString& bundleDir); ///< This client's version, "" when unknown.
    QString (*computerName)();                    ///< Display name of this computer, or "".

    bool templateIcon; ///< The status area tints the icon itself.
    bool iconMenu;     ///< Status-area hosts expect the icon to have a context menu.

    /// How names of bundled executables end for the processor that `uname` calls `machine`.
    QString variantSuffix(const QString& machine) const;
};

Platform macOSPlatform();
Platform linuxPlatform();

/// The system that this program was built for.
Platform hostPlatform();

/// The machine field of the operating system's `uname` record, such as "arm64" or "x86_64"; "" when
/// that cannot be read. Any thread.
QString machineHardwareName();

} // namespace tarnwick
