// SPDX-License-Identifier: MIT
#include "core/network.h"

namespace tarnwick::simulator {

const Account* Network::account(const QString& login) const {
    for (const Account& candidate : accounts) {
        if (candidate.login == login)
            return &candidate;
    }
    return nullptr;
}

} // namespace tarnwick::simulator
