// SPDX-License-Identifier: MIT
#include "core/status_document.h"

#include "core/names.h"

#include <QDateTime>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

QString timeText(std::chrono::milliseconds sinceEpoch) {
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).toUTC().toString(Qt::ISODateWithMs);
}

qint64 userId(const Network& network, const QString& login) {
    for (qsizetype i = 0; i < network.accounts.size(); ++i) {
        if (network.accounts.at(i).login == login)
            return 4100 + i;
    }
    return 0;
}

QJsonArray allowedAddresses(const QStringList& addresses) {
    QJsonArray allowed;
    for (const QString& address : addresses)
        allowed.append(address + (address.contains(u':') ? u"/128"_s : u"/32"_s));
    return allowed;
}

} // namespace

StatusDocument::StatusDocument(const Engine& engine, const PeerChurn& churn, QString tun,
                               Moment now)
    : engine_(engine), churn_(churn), tun_(std::move(tun)), now_(now),
      state_(engine.backendState(now)), profile_(engine.state().current()),
      network_(profile_ == nullptr ? nullptr : engine.world().network(profile_->network)) {}

QJsonObject StatusDocument::toJson() const {
    QJsonObject document{
        {u"Version"_s, engine_.world().version},
        {u"TUN"_s, tun_ != "userspace-networking"_L1},
        {u"BackendState"_s, toString(state_)},
        {u"KeyPresent"_s, profile_ != nullptr},
        {u"AuthURL"_s, QString()},
        {u"Health"_s, health()},
        {u"Clock"_s, timeText(now_.sinceEpoch)},
        {u"Self"_s, self()},
        {u"Peer"_s, QJsonValue()},
        {u"User"_s, QJsonValue()},
        {u"CurrentNetwork"_s, QJsonValue()},
        {u"CertDomains"_s, QJsonValue()},
        {u"ClientVersion"_s, QJsonValue()},
    };
    if (network_ == nullptr || state_ == BackendState::NeedsLogin)
        return document;
    document.insert("Peer"_L1, peers());
    document.insert("User"_L1, users());
    document.insert("CurrentNetwork"_L1, currentNetwork());
    document.insert("CertDomains"_L1,
                    QJsonArray{dnsLabel(profile_->hostName) + u'.' + network_->dnsSuffix});
    return document;
}

QJsonArray StatusDocument::health() const {
    if (state_ == BackendState::Stopped)
        return {u"Tarnwick is stopped."_s};
    if (state_ == BackendState::NeedsLogin)
        return {u"You are logged out."_s};
    return {};
}

QJsonObject StatusDocument::self() const {
    QJsonObject self{
        {u"ID"_s, QString()},       {u"PublicKey"_s, u"nodekey:"_s + QString(64, u'0')},
        {u"HostName"_s, QString()}, {u"DNSName"_s, QString()},
        {u"OS"_s, u"linux"_s},      {u"TailscaleIPs"_s, QJsonValue()},
        {u"Online"_s, false}};
    if (network_ == nullptr)
        return self;
    const QString& hostName = profile_->hostName;
    self.insert("HostName"_L1, hostName);
    if (state_ == BackendState::NeedsLogin)
        return self;
    const QStringList addresses = network_->account(profile_->account)->addresses;
    self.insert("ID"_L1, u"n"_s + profile_->id);
    self.insert("PublicKey"_L1, nodeKey(network_->name, profile_->account));
    self.insert("UserID"_L1, userId(*network_, profile_->account));
    self.insert("DNSName"_L1, dnsLabel(hostName) + u'.' + network_->dnsSuffix + u'.');
    self.insert("TailscaleIPs"_L1, QJsonArray::fromStringList(addresses));
    self.insert("AllowedIPs"_L1, allowedAddresses(addresses));
    self.insert("Online"_L1, state_ == BackendState::Running);
    self.insert("MapReceived"_L1, state_ == BackendState::Running);
    if (profile_->expiresAt != 0)
        self.insert("KeyExpiry"_L1, timeText(std::chrono::milliseconds(profile_->expiresAt)));
    return self;
}

QJsonObject StatusDocument::peers() const {
    QJsonObject peers;
    for (qsizetype i = 0; i < network_->peers.size(); ++i) {
        const Peer& candidate = network_->peers.at(i);
        const bool here = churn_.isOnline(*network_, i, now_.sinceStart);
        if (here || !candidate.guest)
            peers.insert(candidate.nodeKey,
                         peer(candidate, i, here && state_ == BackendState::Running));
    }
    return peers;
}

QJsonObject StatusDocument::peer(const Peer& peer, qsizetype index, bool online) const {
    const qint64 seconds = online ? now_.sinceStart.count() / 1000 : 0;
    const QString endpoint = u"203.0.113.%1:41641"_s.arg(10 + index % 200);
    return {{u"ID"_s, u"n%1"_s.arg(peer.nodeKey.right(6))},
            {u"PublicKey"_s, peer.nodeKey},
            {u"HostName"_s, peer.hostName},
            {u"DNSName"_s, peer.dnsName},
            {u"OS"_s, peer.os},
            {u"UserID"_s, userId(*network_, peer.user)},
            {u"TailscaleIPs"_s, QJsonArray::fromStringList(peer.addresses)},
            {u"AllowedIPs"_s, allowedAddresses(peer.addresses)},
            {u"Endpoint"_s, online ? endpoint : QString()},
            {u"Relay"_s, u"fra"_s},
            {u"RxBytes"_s, seconds * (913 + 37 * index)},
            {u"TxBytes"_s, seconds * (288 + 53 * index)},
            {u"Created"_s, u"2025-03-14T09:26:53.589Z"_s},
            {u"LastSeen"_s, timeText(now_.sinceEpoch)},
            {u"LastHandshake"_s, online ? timeText(now_.sinceEpoch) : QString()},
            {u"Online"_s, online},
            {u"Active"_s, online && index % 3 == 0},
            {u"Routing"_s, false},
            {u"CanRoute"_s, peer.os == "linux"_L1},
            {u"Features"_s, QJsonValue()}};
}

QJsonObject StatusDocument::users() const {
    QJsonObject users;
    for (const Account& account : network_->accounts) {
        const qint64 id = userId(*network_, account.login);
        users.insert(QString::number(id), QJsonObject{{u"ID"_s, id},
                                                      {u"LoginName"_s, account.login},
                                                      {u"DisplayName"_s, account.displayName},
                                                      {u"Roles"_s, QJsonArray()}});
    }
    return users;
}

QJsonObject StatusDocument::currentNetwork() const {
    return {{u"Name"_s, network_->name},
            {u"DNSSuffix"_s, network_->dnsSuffix},
            {u"DNSEnabled"_s, true},
            {u"ControlURL"_s, profile_->controlUrl}};
}

} // namespace tarnwick::simulator
