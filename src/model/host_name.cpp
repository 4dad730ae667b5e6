// SPDX-License-Identifier: MIT
#include "model/host_name.h"

#include <QList>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestLabel = 63; // of a name in the DNS

bool isAllowed(char32_t c) {
    return (c >= U'a' && c <= U'z') || (c >= U'0' && c <= U'9');
}

} // namespace

QString sanitizeHostname(const QString& deviceName) {
    QString name;
    // By code points: a character beyond U+FFFF becomes one hyphen, not two. A run of what is not
    // allowed becomes one hyphen as well, and none at the beginning.
    for (const char32_t c : deviceName.toLower().toUcs4()) {
        if (isAllowed(c))
            name += QChar(static_cast<char16_t>(c));
        else if (!name.isEmpty() && !name.endsWith(u'-'))
            name += u'-';
    }
    name.truncate(longestLabel);
    if (name.endsWith(u'-')) // no two stand together
        name.chop(1);
    return name.isEmpty() ? u"tarnwick-device"_s : name;
}

} // namespace tarnwick
