// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// Lets GoogleTest print Qt's texts as texts. It finds these by the type's own namespace.

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toUtf8().constData() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << '"' << bytes.constData() << '"';
}
