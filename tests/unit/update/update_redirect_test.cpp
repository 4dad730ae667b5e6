// SPDX-License-Identifier: MIT
#include "checking.h"
#include "http_server.h"
#include "test_certificate.h"

#include <QTimer>

namespace tarnwick::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QByteArray redirectTo(const QUrl& target, const QByteArray& status = "301 Moved Permanently") {
    return HttpServer::answer(status, {}, "Location: " + target.toEncoded() + "\r\n");
}

const QByteArray newer = HttpServer::answer("200 OK", R"({"current": "1.5.0"})");

UpdateCheckResult outdated() {
    return Outdated{u"1.4.2"_s, u"1.5.0"_s};
}

/// Sends every request on to the server itself, after a pause.
HttpServer::Handler circleWithPauses(std::chrono::milliseconds pause) {
    return [pause](QTcpSocket& client, const QByteArray&) {
        QTimer::singleShot(pause, Qt::PreciseTimer, &client, [&client] {
            client.write("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: /round\r\n\r\n");
        });
    };
}

} // namespace

TEST(UpdateRedirect, EveryKindOfRedirectIsFollowed) {
    const HttpServer target(newer);
    for (const char* status :
         {"301 Moved", "302 Found", "303 See Other", "307 Temporary", "308 Permanent"}) {
        const HttpServer server(redirectTo(target.url(), status));
        EXPECT_EQ(resultOf(server.url()), outdated()) << status;
    }
}

TEST(UpdateRedirect, RelativeTargetIsFollowed) {
    const HttpServer server([](QTcpSocket& client, const QByteArray& head) {
        client.write(head.startsWith("GET /moved ")
                         ? newer
                         : HttpServer::answer("302 Found", {}, "Location: /moved\r\n"));
        client.disconnectFromHost();
    });
    EXPECT_EQ(resultOf(server.url()), outdated());
}

TEST(UpdateRedirect, MovedWithoutATargetIsAFailureWithItsStatus) {
    const HttpServer server(HttpServer::answer("301 Moved Permanently"));
    EXPECT_EQ(resultOf(server.url()), checkError(u"Server returned HTTP 301"_s));
}

TEST(UpdateRedirect, NotModifiedIsAFailureWithItsStatus) {
    const HttpServer server("HTTP/1.1 304 Not Modified\r\nConnection: close\r\n\r\n");
    EXPECT_EQ(resultOf(server.url()), checkError(u"Server returned HTTP 304"_s));
}

TEST(UpdateRedirect, FailureBehindARedirectHasTheLastStatus) {
    const HttpServer target(HttpServer::answer("404 Not Found"));
    const HttpServer server(redirectTo(target.url()));
    EXPECT_EQ(resultOf(server.url()), checkError(u"Server returned HTTP 404"_s));
}

TEST(UpdateRedirect, TargetThatIsNoWebAddressIsAFailureWithItsStatus) {
    const HttpServer server(redirectTo(QUrl(u"file:///etc/hostname"_s)));
    EXPECT_EQ(resultOf(server.url()), checkError(u"Server returned HTTP 301"_s));
}

TEST(UpdateRedirect, CircleEnds) {
    const HttpServer server([](QTcpSocket& client, const QByteArray&) {
        client.write("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: /round\r\n\r\n");
    });
    EXPECT_EQ(resultOf(server.url()), checkError(u"Too many redirects"_s));
    EXPECT_GE(server.requestCount(), 21); // a connection that closes early makes Qt ask twice
    EXPECT_LE(server.requestCount(), 42);
}

// No single request takes the time limit, and the last redirect comes long after it: only a limit
// for all of them together is reached. On a slow machine the limit grows.
TEST(UpdateRedirect, TimeLimitIsOneForAllRedirects) {
    constexpr int pausesInLimit = 10;
    int requests = 0;
    for (auto limit = 500ms; requests < 3 && limit < generousLimit; limit *= 2) {
        const HttpServer server(circleWithPauses(limit / pausesInLimit));
        EXPECT_EQ(resultOf(server.url(), u"1.4.2"_s, limit),
                  checkError(u"The request timed out."_s));
        requests = server.requestCount();
    }
    EXPECT_GE(requests, 3) << "time ran out before the second redirect";
}

TEST(UpdateRedirect, FromHttpToHttpsIsFollowed) {
    const auto tls = selfSignedServer();
    const TrustInServer trust(tls);
    const HttpServer target(newer, tls);
    const HttpServer server(redirectTo(target.url()));
    EXPECT_EQ(resultOf(server.url()), outdated());
}

TEST(UpdateRedirect, FromHttpsDownToHttpIsNotFollowed) {
    const auto tls = selfSignedServer();
    const TrustInServer trust(tls);
    const HttpServer target(newer);
    const HttpServer server(redirectTo(target.url()), tls);
    EXPECT_EQ(resultOf(server.url()), checkError(u"Server returned HTTP 301"_s));
    EXPECT_EQ(server.requestCount(), 1);
    EXPECT_EQ(target.requestCount(), 0);
}

} // namespace tarnwick::test
