// SPDX-License-Identifier: MIT
#include "update/update_manifest.h"

#include "model/strict_json.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

namespace tarnwick {

using namespace Qt::StringLiterals;

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

} // namespace tarnwick
