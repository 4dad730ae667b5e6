// SPDX-License-Identifier: MIT
#pragma once

#include "support/simulated_daemon.h"

#include <QStringList>
#include <QTemporaryDir>

#include <random>

namespace tarnwick::soak {

/// Clients that start, are asked for commands, and are left in the middle of them, one after
/// another on one simulated daemon.
class Quits {
public:
    explicit Quits(unsigned seed);

    /// One such client. False when it does not end by itself, or when the daemon was not asked for
    /// all that the client was.
    bool once();

    /// What the last client was asked for, and what the daemon was.
    QString account() const;

private:
    int numberBelow(unsigned limit);
    QStringList randomCommands();
    bool runClient(const QStringList& commands, int milliseconds) const;
    bool waitForCommands(const QStringList& wanted);
    QStringList askedOfDaemon() const;

    test::SimulatedDaemon daemon_;
    QTemporaryDir home_;
    std::mt19937 random_;
    QStringList profiles_; ///< Ids of networks that can be switched to.
    QStringList wanted_;
    QStringList asked_;
};

} // namespace tarnwick::soak
