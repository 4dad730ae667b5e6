// SPDX-License-Identifier: MIT
#pragma once

#include "core/account.h"
#include "core/peer.h"

#include <QList>
#include <QString>

namespace tarnwick::simulator {

/// One private network: who may use it and which devices are in it.
struct Network {
    QString name; ///< holds no blank, since it is a column of the profile list
    QString dnsSuffix;
    QList<Account> accounts;
    QList<Peer> peers;

    /// The account of that login, or null.
    const Account* account(const QString& login) const;
};

} // namespace tarnwick::simulator
