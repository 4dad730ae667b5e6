// SPDX-License-Identifier: MIT
#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace tarnwick {

/// Files by which the program finds the instance that already runs in the same session.
struct SessionPaths {
    QString lock;
    QString socket;

    /// Paths in `runtimeDir`, which only the user can enter. Sessions of the same user differ in
    /// their display.
    static SessionPaths in(const QString& runtimeDir, const QProcessEnvironment& environment);

    /// The paths for this process's environment.
    static SessionPaths ofThisSession();
};

/// Which of Qt's platform plug-ins to use, in Qt's notation; "" to leave the choice to Qt.
///
/// Only X lets a window choose its position, so X is used where a session offers it beside Wayland,
/// unless the user has chosen a platform.
QString preferredQtPlatforms(const QProcessEnvironment& environment);

/// The names by which the session's desktop calls itself, in capitals; the more special ones first.
QStringList desktopNames(const QProcessEnvironment& environment);

/// Whether the session's shell is GNOME's.
bool isGnome(const QProcessEnvironment& environment);

/// Makes Qt see no session bus where the bus accepts connections but does not answer: Qt would
/// block the main thread for 25 seconds. To be called before Qt's application object is made, while
/// the process has one thread. Blocks for up to 3 seconds where the bus is such, else not.
void spareQtAnUnresponsiveBus(int argc, char** argv);

} // namespace tarnwick
