// SPDX-License-Identifier: MIT
#include "core/names.h"

#include <QCryptographicHash>
#include <QRegularExpression>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

QString dnsLabel(const QString& hostName) {
    static const QRegularExpression unusable(u"[^a-z0-9]+"_s);
    static const QRegularExpression outerHyphens(u"^-|-$"_s);
    QString label = hostName.toLower().remove(u'\'').replace(unusable, u"-"_s);
    return label.remove(outerHyphens).left(63).remove(outerHyphens);
}

QString digest(const QString& text) {
    return QString::fromLatin1(
        QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toHex());
}

QString nodeKey(const QString& network, const QString& node) {
    return u"nodekey:"_s + digest(network + u'\n' + node);
}

} // namespace tarnwick::simulator
