// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

namespace tarnwick {

/// What is remembered of a profile from the last time that it was current and connected.
struct NetworkProfileDetails {
    QString ipAddress;
    QString hostname;

    bool operator==(const NetworkProfileDetails&) const = default;
};

/// Remembered details by profile id.
using ProfileDetailsMap = QMap<QString, NetworkProfileDetails>;

} // namespace tarnwick
