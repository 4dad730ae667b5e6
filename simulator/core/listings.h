// SPDX-License-Identifier: MIT
#pragma once

#include "core/engine.h"

#include <QJsonObject>
#include <QString>

namespace tarnwick::simulator {

/// What `status --json` prints of a daemon whose network interface has the name `tun`.
QJsonObject statusDocument(const Engine& engine, const QString& tun, Moment now);

/// What `status` prints: a line for each device in what `status --json` would print.
QString statusTable(const QJsonObject& status);

/// What `switch --list` prints: a header and a line for each profile, "*" marking the current one.
QString profileTable(const State& state);

} // namespace tarnwick::simulator
