// SPDX-License-Identifier: MIT
// Any bytes as the device name that the user types.
#include "model/host_name.h"

#include "property.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;
using tarnwick::sanitizeHostname;
using tarnwick::fuzz::require;

namespace {

constexpr qsizetype longestLabel = 63;

bool isAllowed(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == u'-';
}

bool isHostName(const QString& name) {
    return !name.isEmpty() && name.size() <= longestLabel && !name.startsWith(u'-') &&
           !name.endsWith(u'-') && std::all_of(name.begin(), name.end(), isAllowed);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto typed =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString name = sanitizeHostname(typed);
    require(isHostName(name), "what comes out is a host name");
    require(!name.contains("--"_L1), "hyphens stand alone");
    require(sanitizeHostname(name) == name, "cleaning twice changes nothing");
    require(sanitizeHostname(u" -"_s + typed) == name, "blanks and hyphens in front do not count");
    if (isHostName(typed) && !typed.contains("--"_L1))
        require(name == typed, "a good name is kept");
    return 0;
}
