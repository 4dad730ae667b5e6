// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetricsF>
#include <QString>

#include <algorithm>

namespace tarnwick::test {

/// Whether all that an address is written with is equally wide. QFontInfo::fixedPitch() does not
/// tell: it is false for "Noto Sans Mono", whose combining accents have no width.
inline bool hasOnePitch(const QFont& font) {
    const QFontMetricsF metrics(font);
    const double pitch = metrics.horizontalAdvance(u'0');
    const QString written = QStringLiteral("123456789.:abcdefilmw");
    return std::all_of(written.begin(), written.end(),
                       [&](QChar c) { return metrics.horizontalAdvance(c) == pitch; });
}

} // namespace tarnwick::test
