// SPDX-License-Identifier: MIT
#include "core/world_reader.h"

#include "core/names.h"

#include <QJsonDocument>
#include <QSet>

#include <cmath>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

QStringList texts(const QJsonValue& list) {
    QStringList result;
    for (const QJsonValue value : list.toArray())
        result.append(value.toString());
    return result;
}

double seconds(const QJsonObject& object, QStringView key, double otherwise) {
    const double value = object.value(key).toDouble(otherwise);
    return std::isfinite(value) && value >= 0 && value <= maximumSeconds ? value : otherwise;
}

} // namespace

std::optional<World> WorldReader::read(const QByteArray& json) {
    problem_.clear();
    QJsonParseError failure;
    const QJsonDocument document = QJsonDocument::fromJson(json, &failure);
    if (!document.isObject()) {
        complain(failure.error == QJsonParseError::NoError ? u"it is not a JSON object"_s
                                                           : failure.errorString());
        return std::nullopt;
    }
    const QJsonObject object = document.object();
    World world;
    world.version = object.value("version"_L1).toString(u"1.0.0"_s);
    world.seed = static_cast<quint32>(object.value("seed"_L1).toInteger(1));
    world.startingSeconds = seconds(object, u"startingSeconds", world.startingSeconds);
    world.churnSeconds = seconds(object, u"churnSeconds", world.churnSeconds);
    readNetworks(object.value("networks"_L1).toArray(), world);
    readAuthKeys(object.value("authKeys"_L1).toArray(), world);
    if (!problem_.isEmpty())
        return std::nullopt;
    return world;
}

void WorldReader::readNetworks(const QJsonArray& list, World& world) {
    for (qsizetype i = 0; i < list.size(); ++i) {
        const QString where = u"networks[%1]"_s.arg(i);
        const QJsonObject object = list.at(i).toObject();
        Network network;
        network.name = required(object, u"name", where);
        if (network.name.contains(u' ') || world.network(network.name) != nullptr)
            complain(where + u".name holds a blank or is taken already"_s);
        network.dnsSuffix =
            object.value("dnsSuffix"_L1).toString(network.name + u".tarnwick.example"_s);
        readAccounts(object.value("accounts"_L1).toArray(), network);
        readPeers(object.value("peers"_L1).toArray(), network);
        world.networks.append(network);
    }
}

void WorldReader::readAccounts(const QJsonArray& list, Network& network) {
    for (qsizetype i = 0; i < list.size(); ++i) {
        const QJsonObject object = list.at(i).toObject();
        Account account;
        account.login = required(object, u"login", u"%1: accounts[%2]"_s.arg(network.name).arg(i));
        account.displayName = object.value("displayName"_L1).toString(account.login);
        account.hostName = object.value("hostName"_L1).toString(u"this-device"_s);
        account.addresses = texts(object.value("addresses"_L1));
        network.accounts.append(account);
    }
    if (network.accounts.isEmpty())
        complain(u"network \"%1\" has no accounts"_s.arg(network.name));
}

void WorldReader::readPeers(const QJsonArray& list, Network& network) {
    for (qsizetype i = 0; i < list.size(); ++i) {
        const QJsonObject object = list.at(i).toObject();
        Peer peer;
        peer.hostName = object.value("hostName"_L1).toString();
        peer.dnsName = object.value("dnsName"_L1)
                           .toString(dnsLabel(peer.hostName) + u'.' + network.dnsSuffix + u'.');
        peer.nodeKey = object.value("key"_L1).toString(
            nodeKey(network.name, u"%1 %2"_s.arg(i).arg(peer.hostName)));
        peer.os = object.value("os"_L1).toString(u"linux"_s);
        peer.user = object.value("user"_L1).toString();
        peer.addresses = texts(object.value("addresses"_L1));
        peer.online = object.value("online"_L1).toBool(true);
        peer.churn = object.value("churn"_L1).toBool(true);
        peer.guest = object.value("guest"_L1).toBool(false);
        network.peers.append(peer);
    }
}

void WorldReader::readAuthKeys(const QJsonArray& list, World& world) {
    for (qsizetype i = 0; i < list.size(); ++i) {
        const QString where = u"authKeys[%1]"_s.arg(i);
        const QJsonObject object = list.at(i).toObject();
        AuthKey key;
        key.key = required(object, u"key", where);
        key.network = required(object, u"network", where);
        key.account = required(object, u"account", where);
        const QString state = object.value("state"_L1).toString(u"good"_s);
        if (state == "expired"_L1)
            key.state = AuthKey::State::Expired;
        else if (state == "used"_L1)
            key.state = AuthKey::State::Used;
        else if (state != "good"_L1)
            complain(where + u".state is none of good, expired, used"_s);
        key.once = object.value("once"_L1).toBool(false);
        key.nodeKeySeconds = seconds(object, u"nodeKeySeconds", 0);
        const Network* network = world.network(key.network);
        if (network == nullptr || network->account(key.account) == nullptr)
            complain(where + u" names a network or account that is not there"_s);
        world.authKeys.append(key);
    }
}

QString WorldReader::required(const QJsonObject& object, QStringView key, const QString& where) {
    const QString text = object.value(key).toString();
    if (text.isEmpty())
        complain(u"%1.%2 is missing"_s.arg(where, key));
    return text;
}

void WorldReader::complain(const QString& problem) {
    if (problem_.isEmpty())
        problem_ = problem;
}

} // namespace tarnwick::simulator
