// SPDX-License-Identifier: MIT
#pragma once

#include <QProcessEnvironment>
#include <QString>

namespace tarnwick {

/// Which of Qt's platform plug-ins to use, in Qt's own notation; "" to leave the choice to Qt.
///
/// Only X lets a window choose its place, so its display is used where a session offers one beside
/// Wayland, unless the user has decided otherwise.
QString preferredQtPlatforms(const QProcessEnvironment& environment);

} // namespace tarnwick
