// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace tarnwick {

/// Compares two texts by Unicode code points: negative when `a` sorts first, positive when `b`
/// does, 0 when they are equal. Qt's own comparison goes by UTF-16 units, in which everything
/// beyond U+FFFF sorts before U+E000.
int compareCodePoints(QStringView a, QStringView b);

} // namespace tarnwick
