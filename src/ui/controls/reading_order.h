// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

class QWidget;

namespace tarnwick {

/// Brings children of one widget into the order in which they are to be read to the user:
/// assistive technology goes by the order in which they were made.
void setReadingOrder(const QList<QWidget*>& children);

} // namespace tarnwick
