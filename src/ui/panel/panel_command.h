// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace tarnwick {

/// What a control of the panel asks the program to do.
struct PanelCommand {
    enum class Kind {
        SwitchProfile,
        RemoveProfile,
        Disconnect,
        ShowAuthKeyWindow,
        Refresh,
        CheckForUpdates,
        OpenWebsite,
        Quit
    };

    Kind kind = Kind::Refresh;
    QString profileId = {}; ///< Only for the commands on profiles.

    bool operator==(const PanelCommand&) const = default;
};

/// Carries out a command. Called on the main thread, once per press.
using PerformCommand = std::function<void(const PanelCommand&)>;

} // namespace tarnwick
