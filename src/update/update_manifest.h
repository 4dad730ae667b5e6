// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <variant>

namespace tarnwick {

/// The published manifest, of which the client reads one member.
struct UpdateManifest {
    QString current; ///< Latest published version, exactly as it was written.

    bool operator==(const UpdateManifest&) const = default;
};

/// Reads a manifest; the alternative is the reason why it cannot be read, for the user. Of a key
/// that occurs twice the last value counts, and text that is not UTF-8 is the parser's error.
std::variant<UpdateManifest, QString> parseUpdateManifest(const QByteArray& body);

} // namespace tarnwick
