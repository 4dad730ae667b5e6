// SPDX-License-Identifier: MIT
#include "support/sample_network.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <random>

namespace tarnwick::bench {

using namespace Qt::StringLiterals;

namespace {

using Random = std::mt19937;

QString hexDigits(Random& random, int count) {
    QString text;
    for (int i = 0; i < count; ++i)
        text += QString::number(random() % 16, 16);
    return text;
}

QJsonObject node(Random& random, const QString& key) {
    const QString name = u"device-"_s + hexDigits(random, 6);
    const auto address = u"100.%1.%2.%3"_s.arg(64 + random() % 64).arg(random() % 256).arg(7);
    return {
        {u"ID"_s, u"n"_s + hexDigits(random, 12)},
        {u"PublicKey"_s, key},
        {u"HostName"_s, name},
        {u"DNSName"_s, name + u".harbor-labs.tarnwick.example."_s},
        {u"OS"_s, u"linux"_s},
        {u"UserID"_s, static_cast<qint64>(random() % 100000)},
        {u"TailscaleIPs"_s, QJsonArray{address, u"fd7a:4e2b:91c0::"_s + hexDigits(random, 4)}},
        {u"AllowedIPs"_s, QJsonArray{address + u"/32"_s}},
        {u"Addrs"_s, QJsonValue()},
        {u"CurAddr"_s, u""_s},
        {u"Relay"_s, u"fra"_s},
        {u"RxBytes"_s, static_cast<qint64>(random())},
        {u"TxBytes"_s, static_cast<qint64>(random())},
        {u"Created"_s, u"2025-03-14T09:26:53.589793Z"_s},
        {u"LastSeen"_s, u"2026-01-02T03:04:05.6Z"_s},
        {u"Online"_s, random() % 4 != 0},
        {u"ExitNode"_s, false},
        {u"Active"_s, false},
        {u"InNetworkMap"_s, true},
        {u"InEngine"_s, false},
    };
}

} // namespace

QByteArray statusDocument(int peers) {
    Random random(20250314);
    QJsonObject peer;
    for (int i = 0; i < peers; ++i) {
        const QString key = u"nodekey:"_s + hexDigits(random, 64);
        peer.insert(key, node(random, key));
    }
    const QJsonObject document{
        {u"Version"_s, u"1.8.2"_s},        {u"TUN"_s, true},
        {u"BackendState"_s, u"Running"_s}, {u"Self"_s, node(random, u"nodekey:self"_s)},
        {u"Health"_s, QJsonArray()},       {u"Peer"_s, peer},
    };
    return QJsonDocument(document).toJson(QJsonDocument::Indented);
}

QString profileTable(int profiles) {
    Random random(42);
    QString table = u"ID    Network             Account\n"_s;
    for (int i = 0; i < profiles; ++i) {
        table += u"%1  network-%2    person.%3@tarnwick.example%4\n"_s.arg(
            hexDigits(random, 4), hexDigits(random, 6), hexDigits(random, 8),
            i == 7 ? u"*"_s : u""_s);
    }
    return table;
}

} // namespace tarnwick::bench
