// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QPoint>

#include <optional>

namespace tarnwick {

/// A click on the program's icon, as far as the status area reports it.
struct IconClick {
    /// As it was sent: in device pixels by most, in device-independent ones by some, and possibly
    /// anything at all.
    std::optional<QPoint> point;
    QByteArray activationToken; ///< Lets the panel take the focus; "" for none.
};

} // namespace tarnwick
