// SPDX-License-Identifier: MIT
#include "core/world.h"

#include "core/moment.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QStringList texts(const QJsonValue& list) {
    return list.toVariant().toStringList();
}

Account readAccount(const QJsonObject& object) {
    const QString login = object["login"_L1].toString();
    return {.login = login,
            .displayName = object["displayName"_L1].toString(login),
            .hostName = object["hostName"_L1].toString(u"this-device"_s),
            .addresses = texts(object["addresses"_L1])};
}

Peer readPeer(const QJsonObject& object, const Network& network) {
    const QString hostName = object["hostName"_L1].toString();
    const QString dnsName = dnsLabel(hostName) + u'.' + network.dnsSuffix + u'.';
    const QString key = nodeKey(network.name, u"%1 %2"_s.arg(network.peers.size()).arg(hostName));
    return {.hostName = hostName,
            .dnsName = object["dnsName"_L1].toString(dnsName),
            .nodeKey = object["key"_L1].toString(key),
            .os = object["os"_L1].toString(u"linux"_s),
            .user = object["user"_L1].toString(),
            .addresses = texts(object["addresses"_L1]),
            .online = object["online"_L1].toBool(true),
            .churn = object["churn"_L1].toBool(true),
            .guest = object["guest"_L1].toBool(false)};
}

Network readNetwork(const QJsonObject& object) {
    Network network;
    network.name = object["name"_L1].toString();
    network.dnsSuffix = object["dnsSuffix"_L1].toString(network.name + u".tarnwick.example"_s);
    for (const QJsonValue account : object["accounts"_L1].toArray())
        network.accounts.append(readAccount(account.toObject()));
    for (const QJsonValue peer : object["peers"_L1].toArray())
        network.peers.append(readPeer(peer.toObject(), network));
    return network;
}

AuthKey readAuthKey(const QJsonObject& object) {
    return {.key = object["key"_L1].toString(),
            .network = object["network"_L1].toString(),
            .account = object["account"_L1].toString(),
            .state = object["state"_L1].toString(u"good"_s),
            .once = object["once"_L1].toBool(false),
            .term = timeSpan(object["nodeKeySeconds"_L1].toDouble()).value_or(0ms)};
}

/// What is wrong with the network, or "".
QString problemOf(const Network& network, const World& world) {
    if (network.name.isEmpty())
        return u".name is missing"_s;
    if (network.name.contains(u' ') || world.network(network.name) != &network)
        return u".name holds a blank or is taken already"_s;
    if (network.accounts.isEmpty())
        return u" has no accounts"_s;
    return network.account({}) == nullptr ? QString() : u" has an account without login"_s;
}

QString problemOf(const AuthKey& key, const World& world) {
    if (key.key.isEmpty())
        return u".key is missing"_s;
    if (!QStringList({u"good"_s, u"expired"_s, u"used"_s}).contains(key.state))
        return u".state is none of good, expired, used"_s;
    const Network* network = world.network(key.network);
    const bool hasAccount = network != nullptr && network->account(key.account) != nullptr;
    return hasAccount ? QString() : u" names a network or account that is not there"_s;
}

/// What is wrong with the first invalid entry of a list of the world, or "".
template <typename T>
QString problemOf(const QList<T>& list, QLatin1StringView name, const World& world) {
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (const QString problem = problemOf(list.at(i), world); !problem.isEmpty())
            return u"%1[%2]%3"_s.arg(name).arg(i).arg(problem);
    }
    return {};
}

} // namespace

std::optional<World> World::load(const QString& path, QString& problem) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = file.errorString();
        return std::nullopt;
    }
    QJsonParseError failure;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &failure);
    if (!document.isObject()) {
        problem = document.isNull() ? failure.errorString() : u"it is not a JSON object"_s;
        return std::nullopt;
    }
    const QJsonObject object = document.object();
    World world;
    world.version = object["version"_L1].toString(u"1.0.0"_s);
    world.seed = static_cast<quint32>(object["seed"_L1].toInteger(1));
    world.startingTime = timeSpan(object["startingSeconds"_L1].toDouble(2)).value_or(2s);
    world.churnPeriod = timeSpan(object["churnSeconds"_L1].toDouble(20)).value_or(20s);
    for (const QJsonValue network : object["networks"_L1].toArray())
        world.networks.append(readNetwork(network.toObject()));
    for (const QJsonValue key : object["authKeys"_L1].toArray())
        world.authKeys.append(readAuthKey(key.toObject()));
    problem = problemOf(world.networks, "networks"_L1, world);
    if (problem.isEmpty())
        problem = problemOf(world.authKeys, "authKeys"_L1, world);
    return problem.isEmpty() ? std::optional(world) : std::nullopt;
}

} // namespace tarnwick::simulator
