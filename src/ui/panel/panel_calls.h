// SPDX-License-Identifier: MIT
#pragma once

#include "ui/panel/panel_command.h"

#include <QString>

#include <functional>

namespace tarnwick {

/// What the panel can ask for; all that it can do to the rest of the program. Called on the main
/// thread; an empty function is not called.
struct PanelCalls {
    std::function<void(const QString& id)> switchProfile;
    std::function<void(const QString& id)> removeProfile;
    std::function<void()> disconnect;
    std::function<void()> showAuthKeyWindow;
    std::function<void()> refresh;
    std::function<void()> checkForUpdates;
    std::function<void()> openWebsite;
    std::function<void()> quit;

    void perform(const PanelCommand& call) const;
};

} // namespace tarnwick
