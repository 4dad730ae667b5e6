// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSslConfiguration>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace tarnwick::test {

/// A real HTTP server on a free port of the loopback interface, over TLS when it is given a
/// configuration with a certificate. What it answers is what the test's handler writes.
class HttpServer {
public:
    using Handler = std::function<void(QTcpSocket& client, const QByteArray& requestHead)>;

    explicit HttpServer(Handler handler, std::optional<QSslConfiguration> tls = std::nullopt);

    /// Answers every request with these bytes and closes the connection.
    explicit HttpServer(const QByteArray& answer,
                        std::optional<QSslConfiguration> tls = std::nullopt);

    QUrl url(const QString& path = QStringLiteral("/api/public/version")) const;

    /// How many requests have arrived.
    int requestCount() const { return requestCount_; }

    /// The first lines of the requests that have arrived.
    QList<QByteArray> requestHeads() const { return requestHeads_; }

    /// How many connections are open on this side.
    int openConnections() const { return openConnections_; }

    /// An answer with that status line's end (such as "200 OK"), headers and body.
    static QByteArray answer(const QByteArray& status, const QByteArray& body = {},
                             const QByteArray& headers = {});

    /// Ends the connection as a crashed server's system does, with a reset.
    static void reset(QTcpSocket& client);

private:
    void serve(QTcpSocket* client);
    void readFrom(QTcpSocket* client);

    Handler handler_;
    std::unique_ptr<QTcpServer> server_;
    bool isSecure_;
    int requestCount_ = 0;
    int openConnections_ = 0;
    QList<QByteArray> requestHeads_;
};

} // namespace tarnwick::test
