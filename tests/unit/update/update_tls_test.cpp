// SPDX-License-Identifier: MIT
#include "checking.h"
#include "http_server.h"
#include "test_certificate.h"

#include <QHostAddress>
#include <QSslError>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

namespace {

const QByteArray newer = HttpServer::answer("200 OK", R"({"current": "1.5.0"})");

} // namespace

TEST(UpdateTls, TrustedCertificateIsAccepted) {
    const auto tls = selfSignedServer();
    const TrustInServer trust(tls);
    const HttpServer server(newer, tls);
    EXPECT_EQ(resultOf(server.url()), UpdateCheckResult(Outdated{u"1.4.2"_s, u"1.5.0"_s}));
}

TEST(UpdateTls, SelfSignedCertificateGivesThePlatformsText) {
    const HttpServer server(newer, selfSignedServer());
    const auto result = resultOf(server.url());
    const QString platformsText = QSslError(QSslError::SelfSignedCertificate).errorString();
    const auto* error = std::get_if<CheckError>(&result);
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->reason.contains(platformsText)) << error->reason.toStdString();
    EXPECT_EQ(server.requestCount(), 0); // nothing was sent to an untrusted server
}

TEST(UpdateTls, ServerThatSpeaksNoTlsGivesThePlatformsText) {
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QObject::connect(&server, &QTcpServer::newConnection, &server,
                     [&server] { server.nextPendingConnection()->write("220 mail.example\r\n"); });
    QUrl url(u"https://127.0.0.1/"_s);
    url.setPort(server.serverPort());
    const auto result = resultOf(url);
    const auto* error = std::get_if<CheckError>(&result);
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->reason.contains(u"SSL"_s)) << error->reason.toStdString();
}

} // namespace tarnwick::test
