// SPDX-License-Identifier: MIT
#pragma once

#include "core/network.h"
#include "core/world.h"

#include <chrono>

namespace tarnwick::simulator {

/// Who is online when. The same seed gives the same comings and goings in every run.
class PeerChurn {
public:
    explicit PeerChurn(const World& world);

    /// Whether the network's peer number `index` is online that long after the daemon's start.
    bool isOnline(const Network& network, qsizetype index,
                  std::chrono::milliseconds sinceStart) const;

private:
    quint32 seed_;
    std::chrono::milliseconds period_;
};

} // namespace tarnwick::simulator
