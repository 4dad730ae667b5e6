// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick::simulator {

/// No time span of a world or of a fault is longer; keeps the arithmetic in range.
inline constexpr double maximumSeconds = 31'536'000;

/// A host name as a label of a DNS name: lower case, letters, digits and inner hyphens, at most 63.
QString dnsLabel(const QString& hostName);

/// A node's public key, the same every time for the same texts.
QString nodeKey(const QString& network, const QString& node);

/// A short profile id for a network and account; `attempt` tells apart those that collide.
QString profileId(const QString& network, const QString& account, int attempt);

/// What is remembered of an auth key that has been used, instead of the key.
QString keyDigest(const QString& key);

} // namespace tarnwick::simulator
