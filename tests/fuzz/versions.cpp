// SPDX-License-Identifier: MIT
// Any two texts, parted by the first line break, as versions.
#include "property.h"
#include "update/update_manifest.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;
using tarnwick::compareVersions;
using tarnwick::fuzz::require;

namespace {

int compare(const QString& a, const QString& b) {
    const int order = compareVersions(a, b);
    require(order >= -1 && order <= 1, "an order is -1, 0 or 1");
    require(compareVersions(b, a) == -order, "comparing is antisymmetric");
    return order;
}

bool isPlain(const QString& version) {
    const auto components = version.split(u'.', Qt::SkipEmptyParts);
    return std::all_of(components.begin(), components.end(), [](const QString& component) {
        return component.size() < 18 && std::all_of(component.begin(), component.end(),
                                                    [](QChar c) { return c >= u'0' && c <= u'9'; });
    });
}

void checkAlone(const QString& version) {
    require(compare(version, version) == 0, "a version equals itself");
    require(compare(version, u"."_s + version + u".."_s) == 0, "empty components do not count");
    if (isPlain(version)) {
        require(compare(version, version + u".0"_s) == 0, "a missing number is a nought");
        require(compare(version, version + u".1"_s) < 0, "one more number is newer");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString a = text.section(u'\n', 0, 0);
    const QString b = text.section(u'\n', 1);
    const int order = compare(a, b);
    checkAlone(a);
    checkAlone(b);
    require(compare(u"7."_s + a, u"7."_s + b) == order, "equal components in front do not count");
    require(compare(u"1."_s + a, u"2."_s + b) < 0, "the first difference decides");
    return 0;
}
