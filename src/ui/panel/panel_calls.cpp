// SPDX-License-Identifier: MIT
#include "ui/panel/panel_calls.h"

namespace tarnwick {

namespace {

template <typename Function, typename... Arguments>
void callIfSet(const Function& function, const Arguments&... arguments) {
    if (function)
        function(arguments...);
}

} // namespace

void PanelCalls::perform(const PanelCommand& call) const {
    switch (call.kind) {
    case PanelCommand::Kind::SwitchProfile:
        return callIfSet(switchProfile, call.profileId);
    case PanelCommand::Kind::RemoveProfile:
        return callIfSet(removeProfile, call.profileId);
    case PanelCommand::Kind::Disconnect:
        return callIfSet(disconnect);
    case PanelCommand::Kind::ShowAuthKeyWindow:
        return callIfSet(showAuthKeyWindow);
    case PanelCommand::Kind::Refresh:
        return callIfSet(refresh);
    case PanelCommand::Kind::CheckForUpdates:
        return callIfSet(checkForUpdates);
    case PanelCommand::Kind::OpenWebsite:
        return callIfSet(openWebsite);
    case PanelCommand::Kind::Quit:
        return callIfSet(quit);
    }
}

} // namespace tarnwick
