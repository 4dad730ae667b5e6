// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tarnwick {

/// What a notification says of a failed command: the tool's output on one line, without control
/// and direction characters, cut to a length that notifications show, and with `secret` made
/// unreadable.
QString failureText(const QString& output, const QString& secret = {});

/// The same of what the tool printed; none when that reports no failure.
std::optional<QString> failureIn(const QByteArray& output, const QString& secret = {});

} // namespace tarnwick
