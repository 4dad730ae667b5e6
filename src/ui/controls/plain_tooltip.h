// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// Rich text that shows `text` verbatim and wrapped, for tooltips, which would guess its format.
QString plainTooltip(const QString& text);

} // namespace tarnwick
