// SPDX-License-Identifier: MIT
#include "model/profile_details_store.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QSettings>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// QSettings waits without end, on this the main thread, for another process that holds the
// settings file's lock. Whether one does can be asked first.
bool isLockedByAnother(const QSettings& settings) {
    const QString lockFile = settings.fileName() + u".lock"_s;
    if (!QFileInfo::exists(lockFile))
        return false;
    QLockFile lock(lockFile);
    return !lock.tryLock(0) && lock.error() == QLockFile::LockFailedError;
}

} // namespace

ProfileDetailsStore::ProfileDetailsStore(std::unique_ptr<QSettings> settings, QString key)
    : settings_(std::move(settings)), key_(std::move(key)) {}

ProfileDetailsStore::~ProfileDetailsStore() = default;

ProfileDetailsMap ProfileDetailsStore::load() const {
    return decodedData().value_or(ProfileDetailsMap());
}

void ProfileDetailsStore::save(const ProfileDetailsMap& details) {
    // Only a sync that has something to write takes the lock. After an error there may be.
    if (settings_->status() != QSettings::NoError && isLockedByAnother(*settings_))
        return;
    settings_->sync(); // notices a file that somebody else changed, removed or damaged
    if (decodedData() == details || isLockedByAnother(*settings_))
        return;
    settings_->setValue(key_, encode(details));
    settings_->sync();
}

QByteArray ProfileDetailsStore::storedData() const {
    const QVariant value = settings_->value(key_);
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : QByteArray();
}

const std::optional<ProfileDetailsMap>& ProfileDetailsStore::decodedData() const {
    const QByteArray data = storedData();
    if (data != lastData_) {
        lastData_ = data;
        lastDecoded_ = decode(data);
    }
    return lastDecoded_;
}

QByteArray ProfileDetailsStore::encode(const ProfileDetailsMap& details) {
    QJsonObject json;
    for (auto entry = details.begin(); entry != details.end(); ++entry)
        json.insert(entry.key(), QJsonObject{{u"ipAddress"_s, entry->ipAddress},
                                             {u"hostname"_s, entry->hostname}});
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

std::optional<ProfileDetailsMap> ProfileDetailsStore::decode(const QByteArray& data) {
    const auto document = QJsonDocument::fromJson(data);
    if (!document.isObject())
        return std::nullopt;
    ProfileDetailsMap details;
    const QJsonObject json = document.object();
    for (auto entry = json.begin(); entry != json.end(); ++entry) {
        const QJsonValue value = entry.value();
        const QJsonValue ipAddress = value["ipAddress"_L1];
        const QJsonValue hostname = value["hostname"_L1];
        if (!ipAddress.isString() || !hostname.isString())
            return std::nullopt;
        details.insert(entry.key(), {ipAddress.toString(), hostname.toString()});
    }
    return details;
}

} // namespace tarnwick
