// SPDX-License-Identifier: MIT
#include "core/daemon_state.h"

namespace tarnwick::simulator {

const Profile* DaemonState::profile(const QString& id) const {
    for (const Profile& candidate : profiles) {
        if (candidate.id == id)
            return &candidate;
    }
    return nullptr;
}

} // namespace tarnwick::simulator
