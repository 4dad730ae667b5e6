// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

namespace tarnwick {

/// Whether `json`, which QJsonDocument has accepted, holds what JSON forbids and Qt forgives: bare
/// control characters and unknown escapes in texts, and numbers without a digit on both sides of
/// their point. Such a document was damaged on its way.
bool hasForgivenSlips(QByteArrayView json);

} // namespace tarnwick
