// SPDX-License-Identifier: MIT
#include "model/code_point_order.h"

#include <algorithm>

namespace tarnwick {

namespace {

// Moves the surrogates, which stand for everything beyond U+FFFF, behind the units U+E000 to
// U+FFFF; the rest keeps its place.
int rank(QChar unit) {
    constexpr int surrogateOffset = 0x2000;
    const int code = unit.unicode();
    if (unit.isSurrogate())
        return code + surrogateOffset;
    return code >= 0xE000 ? code - 0x800 : code;
}

} // namespace

int compareCodePoints(QStringView a, QStringView b) {
    const auto [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (inA == a.end() || inB == b.end())
        return inA == a.end() ? (inB == b.end() ? 0 : -1) : 1;
    return rank(*inA) - rank(*inB);
}

} // namespace tarnwick
