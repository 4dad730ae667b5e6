// SPDX-License-Identifier: MIT
#pragma once

#include <QVBoxLayout>

namespace tarnwick {

/// Takes everything out of the layout and leaves the widgets as they are, to be laid out anew.
inline void takeAllItems(QVBoxLayout& column) {
    while (const auto* item = column.takeAt(0))
        delete item;
}

} // namespace tarnwick
