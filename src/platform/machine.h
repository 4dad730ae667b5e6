// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// The machine field of the operating system's `uname` record, such as "arm64" or "x86_64"; ""
/// when the system does not tell. Any thread.
QString machineHardwareName();

} // namespace tarnwick
