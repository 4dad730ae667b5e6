// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace tarnwick {

/// Whether `json`, which QJsonDocument has accepted, is JSON by the letter too. Qt lets pass bare
/// control characters and unknown escapes in texts, and numbers without a digit on both sides of
/// their point: a document that holds one was damaged on its way.
bool isStrictJson(QByteArrayView json);

/// Reads the fields of one JSON object with strict types: an absent key or a null leaves the
/// target as it is, a value of another type makes the whole reading fail.
class JsonFields {
public:
    explicit JsonFields(const QJsonObject& object) : object_(object) {}

    void read(QLatin1StringView key, QString& target);
    void read(QLatin1StringView key, bool& target);
    void read(QLatin1StringView key, QStringList& target);

    /// Whether every value read so far had the right type.
    bool isValid() const { return isValid_; }

private:
    const QJsonObject& object_;
    bool isValid_ = true;
};

/// Whether a key is missing or its value is null, which comes to the same.
inline bool isAbsent(const QJsonValue& value) {
    return value.isNull() || value.isUndefined();
}

} // namespace tarnwick
