// SPDX-License-Identifier: MIT
#pragma once

#include "model/network_profile.h"
#include "model/profile_details_store.h"
#include "model/status_response.h"

#include <QByteArray>

#include <optional>

namespace tarnwick {

class CommandRunner;

/// What the tool printed for the status, and what follows from it.
struct DecodedStatus {
    QByteArray output;
    std::optional<StatusResponse> status; ///< None: the daemon did not answer. Without the peers.
    QList<DeviceInfo> devices;            ///< The peers, sorted.

    static DecodedStatus of(const QByteArray& output);
};

/// What one refresh learns from the tool.
struct StatusReading {
    DecodedStatus answer;
    std::optional<QList<NetworkProfile>> profiles; ///< None: not asked for.

    /// Runs the tool once, or twice when the profiles are wanted too. For the work queue: decoding
    /// a large network takes longer than a frame.
    ///
    /// They are also read when this machine is connected with other details than those whose
    /// profile is `known`: it may be in another network, though nobody has said so. What is the
    /// same as `previous` is not decoded again.
    static StatusReading take(const CommandRunner& runner, bool readsProfiles,
                              const std::optional<NetworkProfileDetails>& known,
                              const DecodedStatus& previous);
};

} // namespace tarnwick
