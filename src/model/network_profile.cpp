// SPDX-License-Identifier: MIT
#include "model/network_profile.h"

#include <QStringList>

#include <algorithm>

namespace tarnwick {

namespace {

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

QStringView trimmedBlanks(QStringView line) {
    while (!line.isEmpty() && isBlank(line.front()))
        line = line.sliced(1);
    while (!line.isEmpty() && isBlank(line.back()))
        line.chop(1);
    return line;
}

QString joinedFrom(const QList<QStringView>& pieces, qsizetype first) {
    QString joined = pieces[first].toString();
    for (qsizetype i = first + 1; i < pieces.size(); ++i) {
        joined += u' ';
        joined += pieces[i];
    }
    return joined;
}

} // namespace

QList<NetworkProfile> parseProfileList(const QString& output) {
    constexpr qsizetype columns = 3;
    QList<NetworkProfile> profiles;
    const auto lines = QStringView(output).split(u'\n', Qt::SkipEmptyParts);
    for (qsizetype i = 1; i < lines.size(); ++i) { // the first line is the header
        const auto pieces = trimmedBlanks(lines[i]).split(u' ', Qt::SkipEmptyParts);
        if (pieces.size() < columns)
            continue;
        NetworkProfile profile;
        profile.id = pieces[0].toString();
        profile.tailnet = pieces[1].toString();
        profile.loginName = joinedFrom(pieces, 2);
        profile.isCurrent = profile.loginName.endsWith(u'*');
        if (profile.isCurrent)
            profile.loginName.chop(1);
        profiles.append(profile);
    }
    return profiles;
}

} // namespace tarnwick
