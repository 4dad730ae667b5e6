// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_state.h"

#include <QList>
#include <QString>

namespace tarnwick::pictures {

/// One picture: a state of the controller, and what is open in it.
struct Scene {
    enum class Open { Nothing, Devices, Picker };

    QString name;
    DaemonState state;
    Open open = Open::Nothing;
    bool isRightToLeft = false;
    int tabPresses = 0; ///< How far the keyboard has moved the focus.
};

/// Every variant of the panel, and what bad input could do to it.
QList<Scene> allScenes();

} // namespace tarnwick::pictures
