// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace tarnwick {

/// One log-in to a network, as the user sees it listed.
struct NetworkProfile {
    QString id;
    QString tailnet;   ///< The network's name.
    QString loginName; ///< The account; may contain blanks.
    bool isCurrent = false;
    QString ipAddress; ///< Remembered address in this network, "" when none.
    QString hostname;  ///< Remembered host name in this network, "" when none.

    bool operator==(const NetworkProfile&) const = default;
};

/// Reads the table that the tool prints for `switch --list`: a header, then a line a profile with
/// its id, network and account separated by spaces, the current one ending in "*". Lines of
/// another form are skipped, so any other text yields few or no profiles. Any thread.
QList<NetworkProfile> parseProfileList(const QString& output);

} // namespace tarnwick
