// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// What a control of the panel calls, as a value.
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

} // namespace tarnwick
