// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace tarnwick::bench {

/// A status document as a daemon prints it, with many members that the client does not read and
/// its peers unsorted.
QByteArray statusDocument(int peers);

/// The table of that many profiles.
QString profileTable(int profiles);

} // namespace tarnwick::bench
