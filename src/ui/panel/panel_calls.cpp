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

void PanelCalls::perform(const PanelCall& call) const {
    switch (call.kind) {
    case PanelCall::Kind::SwitchProfile:
        return callIfSet(switchProfile, call.profileId);
    case PanelCall::Kind::RemoveProfile:
        return callIfSet(removeProfile, call.profileId);
    case PanelCall::Kind::Disconnect:
        return callIfSet(disconnect);
    case PanelCall::Kind::ShowAuthKeyWindow:
        return callIfSet(showAuthKeyWindow);
    case PanelCall::Kind::Refresh:
        return callIfSet(refresh);
    case PanelCall::Kind::CheckForUpdates:
        return callIfSet(checkForUpdates);
    case PanelCall::Kind::OpenWebsite:
        return callIfSet(openWebsite);
    case PanelCall::Kind::Quit:
        return callIfSet(quit);
    }
}

} // namespace tarnwick
