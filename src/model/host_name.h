// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// The host name that a device name becomes: lower case, of the letters a to z, digits and single
/// hyphens inside, at most 63 long; "tarnwick-device" when nothing is left.
QString sanitizeHostname(const QString& deviceName);

} // namespace tarnwick
