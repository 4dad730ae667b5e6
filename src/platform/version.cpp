// SPDX-License-Identifier: MIT
#include "platform/version.h"

#include <QFile>
#include <QXmlStreamReader>

namespace tarnwick {

QString versionFromPropertyList(const QByteArray& propertyList) {
    QXmlStreamReader xml(propertyList);
    int dictionaryDepth = 0;
    QString key;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::EndElement && xml.name() == u"dict")
            --dictionaryDepth;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"dict") {
            ++dictionaryDepth;
            key.clear();
        } else if (xml.name() == u"key") {
            key = xml.readElementText();
        } else {
            const bool isVersion = dictionaryDepth == 1 && key == u"CFBundleShortVersionString" &&
                                   xml.name() == u"string";
            if (isVersion)
                return xml.readElementText();
            key.clear();
        }
    }
    return {};
}

QString versionFromBundle(const QString& bundleDir) {
    QFile file(bundleDir + QStringLiteral("/../Info.plist"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return versionFromPropertyList(file.readAll());
}

QString versionCompiledIn(const QString&) {
    return QStringLiteral(TARNWICK_VERSION);
}

} // namespace tarnwick
