// SPDX-License-Identifier: MIT
#include "core/text_tables.h"

#include <QJsonArray>
#include <QList>
#include <QStringList>

#include <algorithm>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

/// Lines up all columns but the last, two blanks apart.
QString aligned(const QList<QStringList>& rows) {
    QList<qsizetype> widths;
    for (const QStringList& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (qsizetype i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths.at(i), row.at(i).size());
    }
    QString text;
    for (const QStringList& row : rows) {
        for (qsizetype i = 0; i + 1 < row.size(); ++i)
            text += row.at(i).leftJustified(widths.at(i) + 2);
        text += row.last() + u'\n';
    }
    return text;
}

QStringList deviceRow(const QJsonObject& device, const QJsonObject& users, const QString& state) {
    const QString user = QString::number(device.value("UserID"_L1).toInteger());
    const QString address = device.value("TailscaleIPs"_L1).toArray().first().toString();
    return {address.isEmpty() ? u"-"_s : address, device.value("HostName"_L1).toString(),
            users.value(user).toObject().value("LoginName"_L1).toString(u"-"_s),
            device.value("OS"_L1).toString(), state};
}

QString deviceState(const QJsonObject& device) {
    if (!device.value("Online"_L1).toBool())
        return u"offline"_s;
    return device.value("Active"_L1).toBool()
               ? u"active; direct "_s + device.value("Endpoint"_L1).toString()
               : u"idle"_s;
}

} // namespace

QString profileTable(const DaemonState& state) {
    QList<QStringList> rows{{u"ID"_s, u"Network"_s, u"Account"_s}};
    for (const Profile& profile : state.profiles)
        rows.append({profile.id, profile.network,
                     profile.account + (profile.id == state.currentId ? u"*"_s : QString())});
    return aligned(rows);
}

QString statusTable(const QJsonObject& status) {
    const QString state = status.value("BackendState"_L1).toString();
    if (state == "NeedsLogin"_L1)
        return u"Logged out.\n"_s;
    if (state == "Stopped"_L1)
        return u"Tarnwick is stopped.\n"_s;
    const QJsonObject users = status.value("User"_L1).toObject();
    QList<QStringList> rows;
    for (const QJsonValue value : status.value("Peer"_L1).toObject())
        rows.append(deviceRow(value.toObject(), users, deviceState(value.toObject())));
    std::ranges::sort(rows, {}, [](const QStringList& row) { return row.at(1); });
    rows.prepend(deviceRow(status.value("Self"_L1).toObject(), users, u"-"_s));
    return (state == "Starting"_L1 ? u"Tarnwick is starting.\n\n"_s : QString()) + aligned(rows);
}

} // namespace tarnwick::simulator
