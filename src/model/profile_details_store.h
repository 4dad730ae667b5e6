// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <memory>
#include <optional>

class QSettings;

namespace tarnwick {

/// What is remembered of a profile from the last time that it was current and connected.
struct NetworkProfileDetails {
    QString ipAddress;
    QString hostname;

    bool operator==(const NetworkProfileDetails&) const = default;
};

/// Remembered details by profile id.
using ProfileDetailsMap = QMap<QString, NetworkProfileDetails>;

/// The user's settings, of which the client has one: the remembered details of each profile.
///
/// Main thread only. Never reports an error: what cannot be read counts as nothing remembered, and
/// what could not be saved is saved with the next poll.
class ProfileDetailsStore {
public:
    /// `key` is the entry's name as QSettings takes it.
    ProfileDetailsStore(std::unique_ptr<QSettings> settings, QString key);
    ~ProfileDetailsStore();
    ProfileDetailsStore(const ProfileDetailsStore&) = delete;
    ProfileDetailsStore& operator=(const ProfileDetailsStore&) = delete;

    ProfileDetailsMap load() const;

    /// Replaces what is stored. Writes only what differs from it: details are saved after every
    /// successful poll.
    void save(const ProfileDetailsMap& details);

    /// The stored form, UTF-8 JSON; decoding it fails as a whole on any other shape.
    static QByteArray encode(const ProfileDetailsMap& details);
    static std::optional<ProfileDetailsMap> decode(const QByteArray& data);

private:
    QByteArray storedData() const;
    const std::optional<ProfileDetailsMap>& decodedData() const;

    std::unique_ptr<QSettings> settings_;
    QString key_;
    mutable QByteArray lastData_; ///< What was decoded last: it seldom changes.
    mutable std::optional<ProfileDetailsMap> lastDecoded_;
};

} // namespace tarnwick
