// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

namespace tarnwick {

/// Whether `json`, which QJsonDocument has accepted, is JSON by the letter too. Qt lets pass bare
/// control characters and unknown escapes in texts, and numbers without a digit on both sides of
/// their point: a document that holds one was damaged on its way.
bool isStrictJson(QByteArrayView json);

} // namespace tarnwick
