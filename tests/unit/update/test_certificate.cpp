// SPDX-License-Identifier: MIT
#include "test_certificate.h"

#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QTemporaryDir>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

QSslConfiguration selfSignedServer() {
    const QTemporaryDir directory;
    const QString key = directory.filePath(u"key.pem"_s);
    const QString certificate = directory.filePath(u"certificate.pem"_s);
    QProcess openssl;
    openssl.start(u"openssl"_s,
                  {u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
                   u"ec_paramgen_curve:prime256v1"_s, u"-nodes"_s, u"-days"_s, u"2"_s, u"-subj"_s,
                   u"/CN=loopback"_s, u"-addext"_s, u"subjectAltName=IP:127.0.0.1"_s, u"-keyout"_s,
                   key, u"-out"_s, certificate});
    if (!openssl.waitForFinished() || openssl.exitCode() != 0)
        qFatal("openssl made no certificate");
    QSslConfiguration server = QSslConfiguration::defaultConfiguration();
    server.setLocalCertificate(QSslCertificate(contentOf(certificate)));
    server.setPrivateKey(QSslKey(contentOf(key), QSsl::Ec));
    return server;
}

TrustInServer::TrustInServer(const QSslConfiguration& server)
    : before_(QSslConfiguration::defaultConfiguration()) {
    QSslConfiguration trusting = before_;
    trusting.addCaCertificate(server.localCertificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
}

TrustInServer::~TrustInServer() {
    QSslConfiguration::setDefaultConfiguration(before_);
}

} // namespace tarnwick::test
