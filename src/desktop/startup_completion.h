// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace tarnwick {

/// Reports that what a launch or a click with this token led to is there: on X the pointer shows
/// until then that the program is busy. On Wayland a token is used by a window's activation.
void completeStartup(const QByteArray& token);

} // namespace tarnwick
