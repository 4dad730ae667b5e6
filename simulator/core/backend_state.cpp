// SPDX-License-Identifier: MIT
#include "core/backend_state.h"

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

QString toString(BackendState state) {
    switch (state) {
    case BackendState::NeedsLogin:
        return u"NeedsLogin"_s;
    case BackendState::Stopped:
        return u"Stopped"_s;
    case BackendState::Starting:
        return u"Starting"_s;
    case BackendState::Running:
        return u"Running"_s;
    }
    return {};
}

} // namespace tarnwick::simulator
