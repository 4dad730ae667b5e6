// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// What a notification says of a failed command: the tool's output on one line, without control
/// characters, cut to a length that notifications show, and with `secret` made unreadable.
QString failureText(const QString& output, const QString& secret = {});

} // namespace tarnwick
