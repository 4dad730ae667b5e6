// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace tarnwick::simulator {

/// A user of a network, and what this device gets there when it logs in as that user.
struct Account {
    QString login;
    QString displayName;
    QString hostName;      ///< of this device, unless the log-in names another
    QStringList addresses; ///< of this device
};

} // namespace tarnwick::simulator
