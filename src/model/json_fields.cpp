// SPDX-License-Identifier: MIT
#include "model/json_fields.h"

#include <QJsonArray>

namespace tarnwick {

void JsonFields::read(QLatin1StringView key, QString& target) {
    const QJsonValue value = object_.value(key);
    if (value.isString())
        target = value.toString();
    else if (!isAbsent(value))
        isValid_ = false;
}

void JsonFields::read(QLatin1StringView key, bool& target) {
    const QJsonValue value = object_.value(key);
    if (value.isBool())
        target = value.toBool();
    else if (!isAbsent(value))
        isValid_ = false;
}

void JsonFields::read(QLatin1StringView key, QStringList& target) {
    const QJsonValue value = object_.value(key);
    if (isAbsent(value))
        return;
    isValid_ = isValid_ && value.isArray();
    QStringList texts;
    const QJsonArray elements = value.toArray();
    for (const auto& element : elements) {
        isValid_ = isValid_ && element.isString();
        texts.append(element.toString());
    }
    if (isValid_)
        target = texts;
}

} // namespace tarnwick
