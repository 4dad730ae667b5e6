// SPDX-License-Identifier: MIT
#include "model/strict_json.h"

#include <QJsonArray>

namespace tarnwick {

namespace {

constexpr QByteArrayView escapable = "\"\\/bfnrtu";
constexpr QByteArrayView digits = "0123456789";

// Returns the position of the quote that ends the text which begins behind `quote`, or -1 when
// something in it is forbidden.
qsizetype endOfText(QByteArrayView json, qsizetype quote) {
    for (qsizetype i = quote + 1; i < json.size(); ++i) {
        const char c = json[i];
        if (c == '"')
            return i;
        if (static_cast<unsigned char>(c) < 0x20)
            return -1;
        if (c == '\\' && (++i == json.size() || !escapable.contains(json[i])))
            return -1;
    }
    return -1;
}

bool isPointBetweenDigits(QByteArrayView json, qsizetype point) {
    return point > 0 && point + 1 < json.size() && digits.contains(json[point - 1]) &&
           digits.contains(json[point + 1]);
}

} // namespace

bool isStrictJson(QByteArrayView json) {
    for (qsizetype i = 0; i < json.size(); ++i) {
        if (json[i] == '"') {
            i = endOfText(json, i);
            if (i < 0)
                return false;
        } else if (json[i] == '.' && !isPointBetweenDigits(json, i)) {
            return false;
        }
    }
    return true;
}

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
