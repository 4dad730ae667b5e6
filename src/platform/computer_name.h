// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// The name in "PRETTY_HOSTNAME" of a text in the format of /etc/machine-info; "" when there is
/// none. Quotes and backslash escapes are undone as a shell would.
QString prettyHostname(const QString& machineInfo);

/// The name that the user gave this computer: /etc/machine-info, else the host name.
QString computerNameFromMachineInfo();

/// The name that the user gave this Mac. Runs scutil and waits for it, a second at most. Main
/// thread.
QString computerNameFromSystemConfiguration();

} // namespace tarnwick
