// SPDX-License-Identifier: MIT
#include "core/world.h"

namespace tarnwick::simulator {

const Network* World::network(const QString& name) const {
    for (const Network& candidate : networks) {
        if (candidate.name == name)
            return &candidate;
    }
    return nullptr;
}

const AuthKey* World::authKey(const QString& key) const {
    for (const AuthKey& candidate : authKeys) {
        if (candidate.key == key)
            return &candidate;
    }
    return nullptr;
}

} // namespace tarnwick::simulator
