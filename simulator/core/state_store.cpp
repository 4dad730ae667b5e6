// SPDX-License-Identifier: MIT
#include "core/state_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <cstdio>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

// A state file never gets near this; a larger one is somebody else's.
constexpr qint64 maximumStateBytes = qint64{16} << 20;

void warn(const QString& sentence) {
    std::fprintf(stderr, "tarnwick-daemon: %s\n", sentence.toLocal8Bit().constData());
}

Profile readProfile(const QJsonObject& object) {
    Profile profile;
    profile.id = object.value("id"_L1).toString();
    profile.network = object.value("network"_L1).toString();
    profile.account = object.value("account"_L1).toString();
    profile.hostName = object.value("hostName"_L1).toString();
    profile.controlUrl = object.value("controlURL"_L1).toString();
    profile.expiresAt = object.value("expiresAt"_L1).toInteger();
    return profile;
}

QJsonObject writeProfile(const Profile& profile) {
    return {{u"id"_s, profile.id},
            {u"network"_s, profile.network},
            {u"account"_s, profile.account},
            {u"hostName"_s, profile.hostName},
            {u"controlURL"_s, profile.controlUrl},
            {u"expiresAt"_s, profile.expiresAt}};
}

} // namespace

DaemonState StateStore::load() const {
    DaemonState state;
    const QFileInfo info(path_);
    if (path_.isEmpty() || !info.exists())
        return state;
    QFile file(path_);
    QByteArray bytes;
    if (info.isFile() && file.open(QIODevice::ReadOnly))
        bytes = file.read(maximumStateBytes);
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject()) {
        warn(u"the state in %1 cannot be read; starting anew"_s.arg(path_));
        return state;
    }
    const QJsonObject object = document.object();
    for (const QJsonValue value : object.value("profiles"_L1).toArray()) {
        const Profile profile = readProfile(value.toObject());
        if (!profile.id.isEmpty() && state.profile(profile.id) == nullptr)
            state.profiles.append(profile);
    }
    for (const QJsonValue value : object.value("usedKeys"_L1).toArray())
        state.usedKeys.append(value.toString());
    state.currentId = object.value("current"_L1).toString();
    state.wantRunning = object.value("wantRunning"_L1).toBool();
    return state;
}

void StateStore::save(const DaemonState& state) const {
    if (path_.isEmpty())
        return;
    QJsonArray profiles;
    for (const Profile& profile : state.profiles)
        profiles.append(writeProfile(profile));
    const QJsonObject object{{u"version"_s, 1},
                             {u"current"_s, state.currentId},
                             {u"wantRunning"_s, state.wantRunning},
                             {u"profiles"_s, profiles},
                             {u"usedKeys"_s, QJsonArray::fromStringList(state.usedKeys)}};
    QDir().mkpath(QFileInfo(path_).absolutePath());
    QSaveFile file(path_);
    const bool saved = file.open(QIODevice::WriteOnly) &&
                       file.write(QJsonDocument(object).toJson()) >= 0 && file.commit();
    if (!saved)
        warn(u"the state cannot be saved in %1: %2"_s.arg(path_, file.errorString()));
}

} // namespace tarnwick::simulator
