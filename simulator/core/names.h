// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include <algorithm>

namespace tarnwick::simulator {

/// The first entry of `list` whose `member` is `value`, or null.
template <typename T>
const T* find(const QList<T>& list, QString T::*member, const QString& value) {
    const auto found = std::ranges::find(list, value, member);
    return found == list.cend() ? nullptr : &*found;
}

/// A host name as a label of a DNS name: lower case, letters, digits and inner hyphens, at most 63.
QString dnsLabel(const QString& hostName);

/// SHA-256 in hexadecimal, for identifiers that look random but are the same in every run.
QString digest(const QString& text);

/// A node's public key.
QString nodeKey(const QString& network, const QString& node);

} // namespace tarnwick::simulator
