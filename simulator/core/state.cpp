// SPDX-License-Identifier: MIT
#include "core/state.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <cstdio>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 maximumStateBytes = qint64{16} << 20; // a larger file is not a state file

void warn(const QString& sentence) {
    std::fprintf(stderr, "tarnwick-daemon: %s\n", qPrintable(sentence));
}

} // namespace

Profile Profile::fromJson(const QJsonObject& object) {
    return {.id = object["id"_L1].toString(),
            .network = object["network"_L1].toString(),
            .account = object["account"_L1].toString(),
            .hostName = object["hostName"_L1].toString(),
            .controlUrl = object["controlURL"_L1].toString(),
            .expiresAt = object["expiresAt"_L1].toInteger()};
}

QJsonObject Profile::toJson() const {
    return {{u"id"_s, id},
            {u"network"_s, network},
            {u"account"_s, account},
            {u"hostName"_s, hostName},
            {u"controlURL"_s, controlUrl},
            {u"expiresAt"_s, expiresAt}};
}

State State::load(const QString& path) {
    State state;
    if (path.isEmpty() || !QFileInfo::exists(path))
        return state;
    QFile file(path);
    QByteArray bytes;
    if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly))
        bytes = file.read(maximumStateBytes);
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        warn(u"the state in %1 cannot be read; starting anew"_s.arg(path));
    const QJsonObject object = document.object();
    for (const QJsonValue value : object["profiles"_L1].toArray()) {
        const Profile profile = Profile::fromJson(value.toObject());
        if (!profile.id.isEmpty() && state.profile(profile.id) == nullptr)
            state.profiles.append(profile);
    }
    state.currentId = object["current"_L1].toString();
    state.wantRunning = object["wantRunning"_L1].toBool();
    state.usedKeys = object["usedKeys"_L1].toVariant().toStringList();
    return state;
}

void State::save(const QString& path) const {
    if (path.isEmpty())
        return;
    QJsonArray list;
    for (const Profile& profile : profiles)
        list.append(profile.toJson());
    const QJsonObject object{{u"version"_s, 1},
                             {u"current"_s, currentId},
                             {u"wantRunning"_s, wantRunning},
                             {u"profiles"_s, list},
                             {u"usedKeys"_s, QJsonArray::fromStringList(usedKeys)}};
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    const bool saved = file.open(QIODevice::WriteOnly) &&
                       file.write(QJsonDocument(object).toJson()) >= 0 && file.commit();
    if (!saved)
        warn(u"the state cannot be saved in %1: %2"_s.arg(path, file.errorString()));
}

} // namespace tarnwick::simulator
