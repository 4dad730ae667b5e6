// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tarnwick {

/// A Unix stream socket that never blocks, that no child inherits and that closes with its owner.
///
/// In place of Qt's local sockets: these come with its whole network library, which the client
/// loads only to check for updates.
class LocalSocket {
public:
    LocalSocket() = default; ///< None: every operation fails.
    ~LocalSocket();
    LocalSocket(const LocalSocket&) = delete;
    LocalSocket& operator=(const LocalSocket&) = delete;
    LocalSocket(LocalSocket&& other) noexcept;
    LocalSocket& operator=(LocalSocket&& other) noexcept;

    /// Listens at `path`, in place of whatever lies there; only its user can connect.
    static LocalSocket listeningAt(const QString& path);

    /// A path that begins with a zero is a name in Linux's abstract namespace.
    static LocalSocket connectedTo(const QString& path);

    /// The next caller; none when nobody waits, or no descriptor is left.
    LocalSocket accept() const;

    bool isOpen() const { return descriptor_ >= 0; }

    int descriptor() const { return descriptor_; }

    /// Some of what has arrived: empty when nothing has, none once the other side has hung up.
    std::optional<QByteArray> read() const;

    /// Whether the other side can read all of `text`, which is short.
    bool write(const QByteArray& text) const;

private:
    explicit LocalSocket(int descriptor);

    int descriptor_ = -1;
};

} // namespace tarnwick
