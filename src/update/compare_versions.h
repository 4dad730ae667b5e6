// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace tarnwick {

/// -1 when version `a` is older than `b`, 1 when it is newer, 0 when they are equal. Any thread.
///
/// Compares the components between the dots, empty ones left out: as numbers where both are numbers
/// of 64 bits, else as texts, decided for each position by itself.
int compareVersions(QStringView a, QStringView b);

} // namespace tarnwick
