// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tarnwick {

/// A Unix stream socket that never blocks, is not inherited by children and closes with its owner.
///
/// Not QLocalSocket, which is part of Qt's network library: that is loaded only to check for
/// updates.
class LocalSocket {
public:
    LocalSocket() = default; ///< Closed: every operation fails.
    ~LocalSocket();
    LocalSocket(const LocalSocket&) = delete;
    LocalSocket& operator=(const LocalSocket&) = delete;
    LocalSocket(LocalSocket&& other) noexcept;
    LocalSocket& operator=(LocalSocket&& other) noexcept;

    /// Listens at `path` and replaces what is there; only the same user can connect.
    static LocalSocket listeningAt(const QString& path);

    /// A path that begins with a zero is a name in Linux's abstract namespace.
    static LocalSocket connectedTo(const QString& path);

    /// The next connection; a closed one when none waits or the process is out of descriptors.
    LocalSocket accept() const;

    bool isOpen() const { return descriptor_ >= 0; }

    int descriptor() const { return descriptor_; }

    /// Some of what has arrived: empty when nothing has, none once the other side has closed.
    std::optional<QByteArray> read() const;

    /// Returns whether all of `text` was sent, which for a short one is the rule.
    bool write(const QByteArray& text) const;

private:
    explicit LocalSocket(int descriptor);

    int descriptor_ = -1;
};

} // namespace tarnwick
