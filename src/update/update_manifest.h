// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

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

/// -1 when version `a` is older than `b`, 1 when it is newer, 0 when they are equal. Any thread.
///
/// Compares the components between the dots, empty ones left out: as numbers where both are numbers
/// of 64 bits, else as texts, decided for each position by itself.
int compareVersions(QStringView a, QStringView b);

} // namespace tarnwick
