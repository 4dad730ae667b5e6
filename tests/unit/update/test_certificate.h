// SPDX-License-Identifier: MIT
#pragma once

#include <QSslConfiguration>

namespace tarnwick::test {

/// A server's configuration with a certificate for 127.0.0.1 that it has signed itself, made anew
/// by each process that asks.
QSslConfiguration selfSignedServer();

/// While it lives, this process trusts the certificate of that server.
class TrustInServer {
public:
    explicit TrustInServer(const QSslConfiguration& server);
    ~TrustInServer();
    TrustInServer(const TrustInServer&) = delete;
    TrustInServer& operator=(const TrustInServer&) = delete;

private:
    QSslConfiguration before_;
};

} // namespace tarnwick::test
