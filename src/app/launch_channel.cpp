// SPDX-License-Identifier: MIT
#include "app/launch_channel.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>

namespace tarnwick {

namespace {

constexpr qint64 longestLine = 1024;
constexpr std::chrono::milliseconds retryInterval{50};

int remaining(const QDeadlineTimer& deadline) {
    return static_cast<int>(deadline.remainingTime());
}

} // namespace

LaunchChannel::LaunchChannel(const QString& path) {
    QLocalServer::removeServer(path);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, this, &LaunchChannel::serve);
    server_.listen(path);
}

void LaunchChannel::serve() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QLocalSocket::readyRead, this, [this, socket] { read(*socket); });
        read(*socket);
    }
}

void LaunchChannel::read(QLocalSocket& socket) {
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() > longestLine)
            socket.abort();
        return;
    }
    const QByteArray line = socket.readLine(longestLine).trimmed();
    if (line != "show" && !line.startsWith("show "))
        return socket.abort();
    socket.write("shown\n");
    socket.disconnectFromServer();
    Q_EMIT showRequested(line.mid(5));
}

bool LaunchChannel::askToShow(const QString& path, const QByteArray& activationToken,
                              std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    while (!deadline.hasExpired()) {
        QLocalSocket socket;
        socket.connectToServer(path);
        if (!socket.waitForConnected(remaining(deadline))) {
            QThread::msleep(static_cast<unsigned long>(retryInterval.count()));
            continue;
        }
        socket.write("show " + activationToken.left(longestLine / 2).simplified() + '\n');
        while (!socket.canReadLine() && socket.waitForReadyRead(remaining(deadline))) {
        }
        return socket.readLine() == "shown\n";
    }
    return false;
}

} // namespace tarnwick
