// SPDX-License-Identifier: MIT
#include "core/listings.h"

#include "core/names.h"

#include <QDateTime>
#include <QJsonArray>
#include <QList>
#include <QStringList>

#include <algorithm>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

using BackendState = Engine::BackendState;

QString timeText(std::chrono::milliseconds sinceEpoch) {
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).toUTC().toString(Qt::ISODateWithMs);
}

qint64 userId(const Network& network, const QString& login) {
    const Account* account = network.account(login);
    return account == nullptr ? 0 : 4100 + (account - network.accounts.data());
}

QString dnsName(const Profile& profile, const Network& network) {
    return dnsLabel(profile.hostName) + u'.' + network.dnsSuffix;
}

QJsonArray allowedAddresses(const QStringList& addresses) {
    QJsonArray allowed;
    for (const QString& address : addresses)
        allowed.append(address + (address.contains(u':') ? u"/128"_s : u"/32"_s));
    return allowed;
}

QJsonArray health(BackendState state) {
    if (state == BackendState::Stopped)
        return {u"Tarnwick is stopped."_s};
    if (state == BackendState::NeedsLogin)
        return {u"You are logged out."_s};
    return {};
}

QJsonObject selfLoggedOut(const Profile* profile) {
    return {{u"ID"_s, QString()},
            {u"PublicKey"_s, u"nodekey:"_s + QString(64, u'0')},
            {u"HostName"_s, profile == nullptr ? QString() : profile->hostName},
            {u"DNSName"_s, QString()},
            {u"OS"_s, u"linux"_s},
            {u"TailscaleIPs"_s, QJsonValue()},
            {u"Online"_s, false}};
}

QJsonObject selfLoggedIn(const Profile& profile, const Network& network, bool isRunning) {
    const QStringList& addresses = network.account(profile.account)->addresses;
    QJsonObject self{{u"ID"_s, u'n' + profile.id},
                     {u"PublicKey"_s, nodeKey(network.name, profile.account)},
                     {u"UserID"_s, userId(network, profile.account)},
                     {u"HostName"_s, profile.hostName},
                     {u"DNSName"_s, dnsName(profile, network) + u'.'},
                     {u"OS"_s, u"linux"_s},
                     {u"TailscaleIPs"_s, QJsonArray::fromStringList(addresses)},
                     {u"AllowedIPs"_s, allowedAddresses(addresses)},
                     {u"Online"_s, isRunning},
                     {u"MapReceived"_s, isRunning}};
    if (profile.expiresAt != 0)
        self.insert("KeyExpiry"_L1, timeText(std::chrono::milliseconds(profile.expiresAt)));
    return self;
}

/// Whether a peer is online: at first as the world says, then as chance decides anew every four
/// periods. These begin at different times for different peers, so that few change at once.
bool isOnline(const World& world, const Network& network, qsizetype index, Moment now) {
    const Peer& peer = network.peers.at(index);
    if (!peer.churn || world.churnPeriod.count() == 0)
        return peer.online;
    const auto chance = [&](qint64 turn) {
        const QString subject = u"%1 %2 %3 "_s.arg(world.seed).arg(index).arg(turn) + network.name;
        return digest(subject).left(8).toUInt(nullptr, 16);
    };
    const qint64 turn = (now.sinceStart / world.churnPeriod + chance(0) % 4) / 4;
    return turn == 0 ? peer.online : chance(turn) % 100 < 70;
}

QJsonObject peerObject(const Network& network, qsizetype index, bool online, Moment now) {
    const Peer& peer = network.peers.at(index);
    const qint64 seconds = online ? now.sinceStart.count() / 1000 : 0;
    const QString endpoint = u"203.0.113.%1:41641"_s.arg(10 + index % 200);
    return {{u"ID"_s, u'n' + peer.nodeKey.right(6)},
            {u"PublicKey"_s, peer.nodeKey},
            {u"HostName"_s, peer.hostName},
            {u"DNSName"_s, peer.dnsName},
            {u"OS"_s, peer.os},
            {u"UserID"_s, userId(network, peer.user)},
            {u"TailscaleIPs"_s, QJsonArray::fromStringList(peer.addresses)},
            {u"AllowedIPs"_s, allowedAddresses(peer.addresses)},
            {u"Endpoint"_s, online ? endpoint : QString()},
            {u"Relay"_s, u"fra"_s},
            {u"RxBytes"_s, seconds * (913 + 37 * index)},
            {u"TxBytes"_s, seconds * (288 + 53 * index)},
            {u"Created"_s, u"2025-03-14T09:26:53.589Z"_s},
            {u"LastSeen"_s, timeText(now.sinceEpoch)},
            {u"LastHandshake"_s, online ? timeText(now.sinceEpoch) : QString()},
            {u"Online"_s, online},
            {u"Active"_s, online && index % 3 == 0},
            {u"Routing"_s, false},
            {u"CanRoute"_s, peer.os == "linux"_L1},
            {u"Features"_s, QJsonValue()}};
}

QJsonObject peers(const World& world, const Network& network, bool isRunning, Moment now) {
    QJsonObject peers;
    for (qsizetype i = 0; i < network.peers.size(); ++i) {
        const Peer& peer = network.peers.at(i);
        const bool online = isOnline(world, network, i, now);
        if (online || !peer.guest)
            peers.insert(peer.nodeKey, peerObject(network, i, online && isRunning, now));
    }
    return peers;
}

QJsonObject users(const Network& network) {
    QJsonObject users;
    for (const Account& account : network.accounts) {
        const qint64 id = userId(network, account.login);
        users.insert(QString::number(id), QJsonObject{{u"ID"_s, id},
                                                      {u"LoginName"_s, account.login},
                                                      {u"DisplayName"_s, account.displayName},
                                                      {u"Roles"_s, QJsonArray()}});
    }
    return users;
}

/// Lines up all columns but the last, two blanks apart.
QString aligned(QList<QStringList> rows) {
    for (qsizetype i = 0; i + 1 < rows.first().size(); ++i) {
        const auto width = [i](const QStringList& row) {
            return row.at(i).size();
        };
        const qsizetype widest = width(std::ranges::max(rows, {}, width));
        for (QStringList& row : rows)
            row[i] = row.at(i).leftJustified(widest + 2);
    }
    QString text;
    for (const QStringList& row : rows)
        text += row.join(QString()) + u'\n';
    return text;
}

QStringList deviceRow(const QJsonObject& device, const QJsonObject& users, const QString& state) {
    const QString user = QString::number(device["UserID"_L1].toInteger());
    const QString address = device["TailscaleIPs"_L1].toArray().first().toString();
    return {address.isEmpty() ? u"-"_s : address, device["HostName"_L1].toString(),
            users[user].toObject().value("LoginName"_L1).toString(u"-"_s),
            device["OS"_L1].toString(), state};
}

QString deviceState(const QJsonObject& device) {
    if (!device["Online"_L1].toBool())
        return u"offline"_s;
    return device["Active"_L1].toBool() ? u"active; direct "_s + device["Endpoint"_L1].toString()
                                        : u"idle"_s;
}

} // namespace

QJsonObject statusDocument(const Engine& engine, const QString& tun, Moment now) {
    const BackendState state = engine.backendState(now);
    const Profile* profile = engine.state().current();
    QJsonObject document{{u"Version"_s, engine.world().version},
                         {u"TUN"_s, tun != "userspace-networking"_L1},
                         {u"BackendState"_s, toString(state)},
                         {u"KeyPresent"_s, profile != nullptr},
                         {u"AuthURL"_s, QString()},
                         {u"Health"_s, health(state)},
                         {u"Clock"_s, timeText(now.sinceEpoch)},
                         {u"Self"_s, selfLoggedOut(profile)},
                         {u"Peer"_s, QJsonValue()},
                         {u"User"_s, QJsonValue()},
                         {u"CurrentNetwork"_s, QJsonValue()},
                         {u"CertDomains"_s, QJsonValue()},
                         {u"ClientVersion"_s, QJsonValue()}};
    if (profile == nullptr || state == BackendState::NeedsLogin)
        return document;
    const Network& network = *engine.world().network(profile->network);
    const bool isRunning = state == BackendState::Running;
    document.insert("Self"_L1, selfLoggedIn(*profile, network, isRunning));
    document.insert("Peer"_L1, peers(engine.world(), network, isRunning, now));
    document.insert("User"_L1, users(network));
    document.insert("CurrentNetwork"_L1, QJsonObject{{u"Name"_s, network.name},
                                                     {u"DNSSuffix"_s, network.dnsSuffix},
                                                     {u"DNSEnabled"_s, true},
                                                     {u"ControlURL"_s, profile->controlUrl}});
    document.insert("CertDomains"_L1, QJsonArray{dnsName(*profile, network)});
    return document;
}

QString statusTable(const QJsonObject& status) {
    const QString state = status["BackendState"_L1].toString();
    if (state == "NeedsLogin"_L1)
        return u"Logged out.\n"_s;
    if (state == "Stopped"_L1)
        return u"Tarnwick is stopped.\n"_s;
    const QJsonObject users = status["User"_L1].toObject();
    QList<QStringList> rows;
    for (const QJsonValue value : status["Peer"_L1].toObject())
        rows.append(deviceRow(value.toObject(), users, deviceState(value.toObject())));
    std::ranges::sort(rows, {}, [](const QStringList& row) { return row.at(1); });
    rows.prepend(deviceRow(status["Self"_L1].toObject(), users, u"-"_s));
    return (state == "Starting"_L1 ? u"Tarnwick is starting.\n\n"_s : QString()) + aligned(rows);
}

QString profileTable(const State& state) {
    QList<QStringList> rows{{u"ID"_s, u"Network"_s, u"Account"_s}};
    for (const Profile& profile : state.profiles)
        rows.append({profile.id, profile.network,
                     profile.account + (profile.id == state.currentId ? u"*"_s : QString())});
    return aligned(rows);
}

} // namespace tarnwick::simulator
