// SPDX-License-Identifier: MIT
#pragma once

#include "core/simulator.h"

#include <QElapsedTimer>
#include <QList>
#include <QLocalServer>
#include <QObject>
#include <QString>

#include <chrono>
#include <sys/types.h>

namespace tarnwick::simulator {

class Connection;

/// Serves a simulator on a socket in the file system, in one thread that no tool can block. Removes
/// the socket in the end, unless another file has taken its place.
class Server : public QObject {
public:
    /// With one more, the oldest is closed.
    static constexpr qsizetype maximumConnections = 200;

    /// A tool that neither sends nor reads anything for `timeout` is disconnected.
    explicit Server(Simulator& simulator,
                    std::chrono::milliseconds timeout = std::chrono::seconds(10));
    ~Server() override;
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Creates the directory, replaces a dead daemon's socket, and listens. Returns an error
    /// message or "".
    QString listen(const QString& path);

private:
    void accept();
    Reply handle(const QByteArrayList& arguments);

    Simulator& simulator_;
    std::chrono::milliseconds timeout_;
    QLocalServer server_;
    QList<Connection*> connections_; // oldest first
    QElapsedTimer clock_;
    QString path_;
    dev_t device_ = 0; // with `inode_` identifies the socket's file
    ino_t inode_ = 0;
};

} // namespace tarnwick::simulator
