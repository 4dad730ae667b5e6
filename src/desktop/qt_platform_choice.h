// SPDX-License-Identifier: MIT
#pragma once

#include <QProcessEnvironment>
#include <QString>

namespace tarnwick {

/// Which of Qt's platform plug-ins to use, in Qt's notation; "" to leave the choice to Qt.
///
/// Only X lets a window choose its position, so X is used where a session offers it beside Wayland,
/// unless the user has chosen a platform.
QString preferredQtPlatforms(const QProcessEnvironment& environment);

} // namespace tarnwick
