// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QPainter;

namespace tarnwick {

constexpr double symbolDrawingSize = 16;

/// Draws the symbol of that name in black, in a square of that size; false for an unknown name.
///
/// As code and not as SVG files: Qt's library for those weighs half a megabyte in a client that has
/// nothing else to do with them.
bool drawSymbol(QPainter& painter, const QString& name);

} // namespace tarnwick
