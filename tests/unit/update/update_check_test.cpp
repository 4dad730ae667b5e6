// SPDX-License-Identifier: MIT
#include "checking.h"
#include "http_server.h"

#include <QJsonDocument>
#include <QTimer>

namespace tarnwick::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QByteArray manifest(const QByteArray& version) {
    return R"({"current": ")" + version + R"("})";
}

UpdateCheckResult resultOfAnswer(const QByteArray& answer, const QString& installed = u"1.4.2"_s) {
    const HttpServer server(answer);
    return resultOf(server.url(), installed);
}

/// The text of a check that failed, "" of one that did not.
QString reasonOf(const UpdateCheckResult& result) {
    const auto* error = std::get_if<CheckError>(&result);
    return error ? error->reason : QString();
}

/// The outcome of a check that times out after `reached` holds; on a slow machine the limit grows
/// until it does.
UpdateCheckResult resultOfTimeOut(const HttpServer& server, const std::function<bool()>& reached) {
    auto limit = 100ms;
    for (; limit < generousLimit; limit *= 2) {
        const auto result = resultOf(server.url(), u"1.4.2"_s, limit);
        if (reached())
            return result;
    }
    return checkError(u"the server did not get so far"_s);
}

} // namespace

TEST(UpdateCheck, NewerPublishedVersionIsOutdated) {
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", manifest("1.5.0"))),
              UpdateCheckResult(Outdated{u"1.4.2"_s, u"1.5.0"_s}));
}

TEST(UpdateCheck, ManifestOneDotZeroWithRunningOneDotZeroDotZeroIsUpToDate) {
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", manifest("1.0")), u"1.0.0"_s),
              UpdateCheckResult(UpToDate{u"1.0.0"_s}));
}

TEST(UpdateCheck, RunningVersionNewerThanCurrentIsUpToDate) {
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", manifest("1.4.1"))),
              UpdateCheckResult(UpToDate{u"1.4.2"_s}));
}

TEST(UpdateCheck, PublishedVersionIsNeitherTrimmedNorValidated) {
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", manifest(" 2.0-beta "))),
              UpdateCheckResult(UpToDate{u"1.4.2"_s})); // " 2" is no number and sorts before "1"
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", manifest("2.0-beta "))),
              UpdateCheckResult(Outdated{u"1.4.2"_s, u"2.0-beta "_s}));
}

TEST(UpdateCheck, CurrentThatIsANumberGivesMalformedManifest) {
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", R"({"current": 2})")),
              checkError(u"Malformed manifest"_s));
}

TEST(UpdateCheck, ArrayBodyGivesMalformedManifest) {
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", R"(["1.5.0"])")),
              checkError(u"Malformed manifest"_s));
}

TEST(UpdateCheck, EmptyBodyGivesAParserErrorText) {
    const QString reason = reasonOf(resultOfAnswer(HttpServer::answer("200 OK")));
    EXPECT_EQ(reason, QJsonParseError{.error = QJsonParseError::IllegalValue}.errorString());
    EXPECT_FALSE(reason.isEmpty());
}

TEST(UpdateCheck, InvalidUtf8GivesAParserErrorText) {
    EXPECT_EQ(
        resultOfAnswer(HttpServer::answer("200 OK", manifest("1.5\xff\xfe"))),
        checkError(QJsonParseError{.error = QJsonParseError::IllegalUTF8String}.errorString()));
}

TEST(UpdateCheck, OfDuplicateKeysTheLastCounts) {
    EXPECT_EQ(resultOfAnswer(HttpServer::answer(
                  "200 OK", R"({"current": "9.0", "other": 1, "current": "1.5.0"})")),
              UpdateCheckResult(Outdated{u"1.4.2"_s, u"1.5.0"_s}));
}

TEST(UpdateCheck, NoContentIsAFailure) {
    EXPECT_EQ(resultOfAnswer("HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n"),
              checkError(u"Server returned HTTP 204"_s));
}

TEST(UpdateCheck, OtherSuccessIsAFailureThoughItHasAManifest) {
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("203 Non-Authoritative", manifest("9.0"))),
              checkError(u"Server returned HTTP 203"_s));
}

TEST(UpdateCheck, EveryStatusOfFailureIsNamedByItsNumber) {
    for (const int status :
         {400, 401, 403, 404, 405, 407, 409, 410, 418, 429, 500, 501, 502, 503, 504, 599}) {
        const QByteArray number = QByteArray::number(status);
        EXPECT_EQ(resultOfAnswer(HttpServer::answer(number + " Some Reason", manifest("9.0"))),
                  checkError(u"Server returned HTTP %1"_s.arg(status)));
    }
}

TEST(UpdateCheck, AnswerThatIsNotHttpIsAnErrorWithTheTransportsText) {
    const QString reason = reasonOf(resultOfAnswer("220 mail.example ESMTP\r\n"));
    EXPECT_FALSE(reason.isEmpty());
    EXPECT_FALSE(reason.startsWith(u"Server returned"_s)) << reason.toStdString();
}

TEST(UpdateCheck, RefusedConnectionIsAnErrorWithTheTransportsText) {
    QUrl url;
    {
        const HttpServer server("");
        url = server.url();
    }
    EXPECT_EQ(resultOf(url), checkError(u"Connection refused"_s));
}

TEST(UpdateCheck, ResetHalfWayThroughTheBodyIsAnError) {
    const HttpServer server([](QTcpSocket& client, const QByteArray&) {
        client.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n" + manifest("9.0"));
        client.flush();
        QTimer::singleShot(50ms, &client, [&client] { HttpServer::reset(client); });
    });
    EXPECT_EQ(resultOf(server.url()), checkError(u"Connection closed"_s));
}

TEST(UpdateCheck, ResetBeforeTheHeadersIsAnError) {
    const HttpServer server(
        [](QTcpSocket& client, const QByteArray&) { HttpServer::reset(client); });
    EXPECT_FALSE(reasonOf(resultOf(server.url())).isEmpty());
}

TEST(UpdateCheck, CloseBeforeTheAnnouncedLengthIsAnErrorThoughTheManifestIsWhole) {
    EXPECT_EQ(resultOfAnswer("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n" + manifest("9.0")),
              checkError(u"Connection closed"_s));
}

TEST(UpdateCheck, HangBeforeTheHeadersTimesOut) {
    const HttpServer server([](QTcpSocket&, const QByteArray&) {});
    EXPECT_EQ(resultOfTimeOut(server, [&server] { return server.requestCount() > 0; }),
              checkError(u"The request timed out."_s));
}

TEST(UpdateCheck, HangAfterTheHeadersTimesOut) {
    const HttpServer server([](QTcpSocket& client, const QByteArray&) {
        client.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n{");
    });
    EXPECT_EQ(resultOfTimeOut(server, [&server] { return server.requestCount() > 0; }),
              checkError(u"The request timed out."_s));
}

TEST(UpdateCheck, DripDoesNotOutliveTheTimeLimit) {
    int drops = 0; // at this rate the body would take a quarter of an hour
    const HttpServer server([&drops](QTcpSocket& client, const QByteArray&) {
        client.write("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
        auto* tap = new QTimer(&client);
        QObject::connect(tap, &QTimer::timeout, &client, [&client, &drops] {
            client.write(" ");
            ++drops;
        });
        tap->start(10ms);
    });
    EXPECT_EQ(resultOfTimeOut(server, [&drops] { return drops > 3; }),
              checkError(u"The request timed out."_s));
}

TEST(UpdateCheck, TwoMebibytesEndTheTransferWithAnError) {
    const QByteArray body = manifest("9.0").leftJustified(2 * 1024 * 1024, ' ');
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", body)),
              checkError(u"The server's answer is too large."_s));
}

TEST(UpdateCheck, EndlessBodyEndsWithTheConnection) {
    const HttpServer server([](QTcpSocket& client, const QByteArray&) {
        client.write("HTTP/1.1 200 OK\r\n\r\n");
        QObject::connect(&client, &QTcpSocket::bytesWritten, &client,
                         [&client] { client.write(QByteArray(64 * 1024, ' ')); });
    });
    UpdateService service(optionsFor(server.url(), u"1.4.2"_s));
    std::optional<UpdateCheckResult> result;
    service.check([&result](const UpdateCheckResult& outcome) { result = outcome; });
    ASSERT_TRUE(waitUntil([&result] { return result.has_value(); }));
    EXPECT_EQ(*result, checkError(u"The server's answer is too large."_s));
    EXPECT_TRUE(waitUntil([&server] { return server.openConnections() == 0; }));
}

TEST(UpdateCheck, BodyOfExactlyOneMebibyteIsRead) {
    const QByteArray body = manifest("1.5.0").leftJustified(1024 * 1024, ' ');
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", body)),
              UpdateCheckResult(Outdated{u"1.4.2"_s, u"1.5.0"_s}));
    EXPECT_EQ(resultOfAnswer(HttpServer::answer("200 OK", body + ' ')),
              checkError(u"The server's answer is too large."_s));
}

TEST(UpdateCheck, PackedBodyIsUnpackedBeforeItsSizeCounts) {
    // 2 MiB of blanks in 2 KB: header and checksum of the gzip format around Qt's deflate stream.
    const QByteArray zlib = qCompress(QByteArray(2 * 1024 * 1024, ' '), 9).sliced(4);
    const HttpServer server(HttpServer::answer("200 OK", zlib, "Content-Encoding: deflate\r\n"));
    EXPECT_EQ(resultOf(server.url()), checkError(u"The server's answer is too large."_s));
}

} // namespace tarnwick::test
