// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include <functional>

namespace tarnwick::pictures {

/// Receives each picture with the name of what it shows.
using TakePicture = std::function<void(const QString& name, const QImage& picture)>;

/// Waits until the window is active and everything that is queued has happened.
void settle(QWidget& window);

} // namespace tarnwick::pictures
