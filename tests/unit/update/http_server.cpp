// SPDX-License-Identifier: MIT
#include "http_server.h"

#include <QHostAddress>
#include <QSslServer>

#include <sys/socket.h>

namespace tarnwick::test {

HttpServer::HttpServer(Handler handler, std::optional<QSslConfiguration> tls)
    : handler_(std::move(handler)), isSecure_(tls.has_value()) {
    if (tls) {
        auto secure = std::make_unique<QSslServer>();
        secure->setSslConfiguration(*tls);
        server_ = std::move(secure);
    } else {
        server_ = std::make_unique<QTcpServer>();
    }
    QObject::connect(server_.get(), &QTcpServer::pendingConnectionAvailable, server_.get(), [this] {
        while (QTcpSocket* client = server_->nextPendingConnection())
            serve(client);
    });
    if (!server_->listen(QHostAddress::LocalHost))
        qFatal("cannot listen on the loopback interface");
}

HttpServer::HttpServer(const QByteArray& answer, std::optional<QSslConfiguration> tls)
    : HttpServer(
          [answer](QTcpSocket& client, const QByteArray&) {
              client.write(answer);
              client.disconnectFromHost();
          },
          std::move(tls)) {}

QUrl HttpServer::url(const QString& path) const {
    QUrl url;
    url.setScheme(isSecure_ ? QStringLiteral("https") : QStringLiteral("http"));
    url.setHost(QStringLiteral("127.0.0.1"));
    url.setPort(server_->serverPort());
    url.setPath(path);
    return url;
}

QByteArray HttpServer::answer(const QByteArray& status, const QByteArray& body,
                              const QByteArray& headers) {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\nConnection: close\r\n" + headers + "\r\n" + body;
}

void HttpServer::reset(QTcpSocket& client) {
    const linger atOnce{.l_onoff = 1, .l_linger = 0};
    setsockopt(static_cast<int>(client.socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce,
               sizeof atOnce);
    client.abort();
}

void HttpServer::serve(QTcpSocket* client) {
    ++openConnections_;
    QObject::connect(client, &QTcpSocket::disconnected, server_.get(), [this, client] {
        --openConnections_;
        client->deleteLater();
    });
    QObject::connect(client, &QTcpSocket::readyRead, server_.get(),
                     [this, client] { readFrom(client); });
    readFrom(client);
}

void HttpServer::readFrom(QTcpSocket* client) {
    const QByteArray head = client->peek(client->bytesAvailable());
    if (!head.contains("\r\n\r\n"))
        return;
    client->readAll();
    ++requestCount_;
    requestHeads_.append(head);
    handler_(*client, head);
}

} // namespace tarnwick::test
