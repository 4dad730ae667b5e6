// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// The control server that a device of this name logs in to: the development one when the name,
/// without surrounding blanks and in lower case, begins with "dev-". Any thread.
QString loginServer(const QString& deviceName);

} // namespace tarnwick
