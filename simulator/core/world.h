// SPDX-License-Identifier: MIT
#pragma once

#include "core/names.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace tarnwick::simulator {

/// A user of a network, and what this device is given when it logs in as that user.
struct Account {
    QString login;
    QString displayName;
    QString hostName;      ///< of this device, unless the log-in names another
    QStringList addresses; ///< of this device
};

/// Another device of a network.
struct Peer {
    QString hostName;
    QString dnsName; ///< ends in a dot
    QString nodeKey;
    QString os;
    QString user; ///< an account's login
    QStringList addresses;
    bool online = true; ///< when the daemon starts
    bool churn = true;  ///< goes offline and online later on
    bool guest = false; ///< is listed only while online
};

/// One private network: who may use it and which devices are in it.
struct Network {
    QString name; ///< holds no blank, since it is a column of the profile list
    QString dnsSuffix;
    QList<Account> accounts;
    QList<Peer> peers;

    const Account* account(const QString& login) const {
        return find(accounts, &Account::login, login);
    }
};

/// A key that logs this device in to one network as one account, if its state allows.
struct AuthKey {
    QString key;
    QString network;
    QString account;
    QString state;                     ///< "good", "expired" or "used"
    bool once = false;                 ///< can be used for one log-in only
    std::chrono::milliseconds term{0}; ///< how long the log-in lasts; 0: for ever
};

/// Everything outside this device, and how fast things happen. README.md describes the JSON.
struct World {
    QString version;
    quint32 seed = 1;
    std::chrono::milliseconds startingTime{0}; ///< how long the daemon is "Starting"
    std::chrono::milliseconds churnPeriod{
        0}; ///< how often peers may go offline or online; 0: never
    QList<Network> networks;
    QList<AuthKey> authKeys;

    const Network* network(const QString& name) const {
        return find(networks, &Network::name, name);
    }

    const AuthKey* authKey(const QString& key) const { return find(authKeys, &AuthKey::key, key); }

    /// Where `load` finds the built-in world.
    static QString builtIn() { return QStringLiteral(":/world.json"); }

    /// The world in a JSON file; nothing if it is invalid, and then `problem` says why.
    static std::optional<World> load(const QString& path, QString& problem);
};

} // namespace tarnwick::simulator
