// SPDX-License-Identifier: MIT
#include "core/names.h"

#include <QByteArray>
#include <QCryptographicHash>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

QString digest(const QString& text) {
    return QString::fromLatin1(
        QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toHex());
}

} // namespace

QString dnsLabel(const QString& hostName) {
    QString label;
    for (const QChar character : hostName.toLower()) {
        const char16_t code = character.unicode();
        if ((code >= u'a' && code <= u'z') || (code >= u'0' && code <= u'9'))
            label += character;
        else if (code != u'\'' && !label.isEmpty() && !label.endsWith(u'-'))
            label += u'-';
    }
    label.truncate(63);
    while (label.endsWith(u'-'))
        label.chop(1);
    return label;
}

QString nodeKey(const QString& network, const QString& node) {
    return u"nodekey:"_s + digest(network + u'\n' + node);
}

QString profileId(const QString& network, const QString& account, int attempt) {
    return digest(u"%1\n%2\n%3"_s.arg(network, account, QString::number(attempt))).left(4);
}

QString keyDigest(const QString& key) {
    return digest(key);
}

} // namespace tarnwick::simulator
