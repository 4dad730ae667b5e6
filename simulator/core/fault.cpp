// SPDX-License-Identifier: MIT
#include "core/fault.h"

#include "core/names.h"

#include <array>
#include <cmath>
#include <utility>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<std::pair<Fault::Kind, QLatin1StringView>, 5> plainFaults = {{
    {Fault::Kind::Hang, "hang"_L1},
    {Fault::Kind::Garbage, "garbage"_L1},
    {Fault::Kind::Flood, "flood"_L1},
    {Fault::Kind::Error, "error"_L1},
    {Fault::Kind::Crash, "crash"_L1},
}};

constexpr QLatin1StringView slowPrefix = "slow:"_L1;

} // namespace

std::optional<Fault> Fault::parse(const QString& text) {
    for (const auto& [kind, name] : plainFaults) {
        if (text == name)
            return Fault{.kind = kind};
    }
    if (!text.startsWith(slowPrefix))
        return std::nullopt;
    bool isNumber = false;
    const double seconds = QStringView(text).sliced(slowPrefix.size()).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(seconds) || seconds < 0 || seconds > maximumSeconds)
        return std::nullopt;
    return Fault{.kind = Kind::Slow,
                 .delay = std::chrono::milliseconds(std::llround(seconds * 1000))};
}

QString Fault::toString() const {
    for (const auto& [candidate, name] : plainFaults) {
        if (kind == candidate)
            return name;
    }
    return slowPrefix + QString::number(static_cast<double>(delay.count()) / 1000);
}

} // namespace tarnwick::simulator
