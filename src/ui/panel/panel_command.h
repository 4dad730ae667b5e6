// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace tarnwick {

/// What a control of the panel asks for, as a value.
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
    QString profileId = {}; ///< Of the profile to switch to or to remove.

    bool operator==(const PanelCommand&) const = default;
};

/// Carries out what the panel's controls ask for. Called on the main thread, once a press.
using PerformCommand = std::function<void(const PanelCommand&)>;

} // namespace tarnwick
