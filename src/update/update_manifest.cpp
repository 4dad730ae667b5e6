// SPDX-License-Identifier: MIT
#include "update/update_manifest.h"

#include "model/code_point_order.h"
#include "model/strict_json.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>

#include <algorithm>
#include <optional>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Qt's own conversion would also accept blanks around the number.
std::optional<qint64> numberIn(QStringView component) {
    const bool hasSign = component.startsWith(u'+') || component.startsWith(u'-');
    const QStringView digits = component.sliced(hasSign ? 1 : 0);
    if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    bool fits = false;
    const qint64 number = component.toLongLong(&fits);
    return fits ? std::optional(number) : std::nullopt;
}

// A component that is missing counts as 0 beside a number, and as no text beside a text.
int compareComponents(std::optional<QStringView> a, std::optional<QStringView> b) {
    const auto numberA = a ? numberIn(*a) : 0;
    const auto numberB = b ? numberIn(*b) : 0;
    if (numberA && numberB)
        return *numberA < *numberB ? -1 : *numberA > *numberB ? 1 : 0;
    const int order = compareCodePoints(a.value_or(QStringView()), b.value_or(QStringView()));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

} // namespace

std::variant<UpdateManifest, QString> parseUpdateManifest(const QByteArray& body) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error == QJsonParseError::NoError && !isStrictJson(body))
        error.error = QJsonParseError::IllegalValue;
    if (error.error != QJsonParseError::NoError)
        return error.errorString();
    const QJsonValue current = document.object().value("current"_L1);
    if (!current.isString())
        return u"Malformed manifest"_s;
    return UpdateManifest{current.toString()};
}

int compareVersions(QStringView a, QStringView b) {
    const auto inA = a.split(u'.', Qt::SkipEmptyParts);
    const auto inB = b.split(u'.', Qt::SkipEmptyParts);
    const auto at = [](const QList<QStringView>& components, qsizetype i) {
        return i < components.size() ? std::optional(components[i]) : std::nullopt;
    };
    for (qsizetype i = 0; i < std::max(inA.size(), inB.size()); ++i) {
        if (const int order = compareComponents(at(inA, i), at(inB, i)))
            return order;
    }
    return 0;
}

} // namespace tarnwick
