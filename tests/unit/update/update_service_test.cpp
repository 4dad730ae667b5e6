// SPDX-License-Identifier: MIT
#include "checking.h"
#include "http_server.h"

#include <QElapsedTimer>
#include <QTimer>

namespace tarnwick::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QByteArray newer = HttpServer::answer("200 OK", R"({"current": "1.5.0"})");

/// The longest time between two timeouts of a timer that is always due.
class LongestPause {
public:
    LongestPause() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_,
                         [this] { longest_ = std::max(longest_, clock_.restart()); });
        clock_.start();
        timer_.start(1ms);
    }

    qint64 milliseconds() const { return longest_; }

private:
    QTimer timer_;
    QElapsedTimer clock_;
    qint64 longest_ = 0;
};

} // namespace

TEST(UpdateService, AddressesAreThoseOfTheServiceWithTheirPaths) {
    EXPECT_EQ(UpdateService::manifestURL().scheme(), u"https"_s);
    EXPECT_EQ(UpdateService::manifestURL().path(), u"/api/public/version"_s);
    EXPECT_EQ(UpdateService::downloadPageURL().scheme(), u"https"_s);
    EXPECT_EQ(UpdateService::downloadPageURL().path(), u"/download/client/macos"_s);
    EXPECT_NE(UpdateService::manifestURL().host(), UpdateService::downloadPageURL().host());
}

TEST(UpdateService, InstalledVersionFallsBackToZero) {
    Platform platform = hostPlatform();
    platform.version = [](const QString&) {
        return QString();
    };
    EXPECT_EQ(UpdateService::installedVersion(platform, u"/nowhere"_s), u"0.0.0"_s);
    platform.version = [](const QString& bundleDir) {
        return u"3.1 in "_s + bundleDir;
    };
    EXPECT_EQ(UpdateService::installedVersion(platform, u"/here"_s), u"3.1 in /here"_s);
}

TEST(UpdateService, AsksForThePathWithOneGet) {
    const HttpServer server(newer);
    resultOf(server.url());
    ASSERT_EQ(server.requestCount(), 1);
    EXPECT_TRUE(server.requestHeads()[0].startsWith("GET /api/public/version HTTP/1.1\r\n"));
}

TEST(UpdateService, ChecksLeaveNothingBehindForTheNext) {
    const HttpServer server(HttpServer::answer("200 OK", R"({"current": "1.5.0"})",
                                               "Set-Cookie: id=7\r\nCache-Control: max-age=900\r\n"
                                               "ETag: \"7\"\r\n"));
    UpdateService service(optionsFor(server.url(), u"1.4.2"_s));
    for (int count = 1; count <= 2; ++count) {
        bool done = false;
        service.check([&done](const UpdateCheckResult&) { done = true; });
        ASSERT_TRUE(waitUntil([&done] { return done; }));
        ASSERT_EQ(server.requestCount(), count); // not from a cache
        const QByteArray head = server.requestHeads().last().toLower();
        EXPECT_FALSE(head.contains("cookie:"));
        EXPECT_FALSE(head.contains("if-none-match:"));
    }
}

TEST(UpdateService, TenChecksAtOnceEachGetTheirResult) {
    int arrived = 0;
    const HttpServer server([&arrived](QTcpSocket& client, const QByteArray&) {
        const QByteArray body = R"({"current": "2.)" + QByteArray::number(arrived++) + R"("})";
        QTimer::singleShot(20ms, &client, [&client, body] {
            client.write(HttpServer::answer("200 OK", body));
            client.disconnectFromHost();
        });
    });
    UpdateService service(optionsFor(server.url(), u"1.4.2"_s));
    QSet<QString> versions;
    for (int i = 0; i < 10; ++i) {
        service.check([&versions](const UpdateCheckResult& result) {
            versions.insert(std::get<Outdated>(result).available);
        });
    }
    EXPECT_TRUE(waitUntil([&versions] { return versions.size() == 10; }));
}

// One good round of several is enough: other pauses are those of a loaded machine.
TEST(UpdateService, TenChecksAtOnceNeverBlockTheEventLoopFor50Milliseconds) {
    const HttpServer server([](QTcpSocket& client, const QByteArray&) {
        QTimer::singleShot(100ms, &client, [&client] {
            client.write(newer);
            client.disconnectFromHost();
        });
    });
    qint64 shortest = std::numeric_limits<qint64>::max();
    for (int round = 0; round < 20 && shortest > 50; ++round) {
        const LongestPause pause;
        UpdateService service(optionsFor(server.url(), u"1.4.2"_s));
        int done = 0;
        for (int i = 0; i < 10; ++i)
            service.check([&done](const UpdateCheckResult&) { ++done; });
        ASSERT_TRUE(waitUntil([&done] { return done == 10; }));
        std::cout << "longest pause " << pause.milliseconds() << " ms\n";
        shortest = std::min(shortest, pause.milliseconds());
    }
    EXPECT_LE(shortest, 50);
}

TEST(UpdateService, ServiceThatGoesTakesItsChecksWithIt) {
    const HttpServer server([](QTcpSocket&, const QByteArray&) {});
    bool called = false;
    {
        UpdateService service(optionsFor(server.url(), u"1.4.2"_s));
        service.check([&called](const UpdateCheckResult&) { called = true; });
        ASSERT_TRUE(waitUntil([&server] { return server.requestCount() == 1; }));
    }
    EXPECT_TRUE(waitUntil([&server] { return server.openConnections() == 0; }));
    EXPECT_FALSE(called);
}

TEST(UpdateService, CompletionMayEndTheService) {
    const HttpServer server(newer);
    auto service = std::make_unique<UpdateService>(optionsFor(server.url(), u"1.4.2"_s));
    bool called = false;
    service->check([&](const UpdateCheckResult&) {
        service.reset();
        called = true;
    });
    EXPECT_TRUE(waitUntil([&called] { return called; }));
}

TEST(UpdateService, CompletionMayBeginTheNextCheck) {
    const HttpServer server(newer);
    UpdateService service(optionsFor(server.url(), u"1.4.2"_s));
    int done = 0;
    service.check([&](const UpdateCheckResult&) {
        service.check([&done](const UpdateCheckResult&) { ++done; });
    });
    EXPECT_TRUE(waitUntil([&done] { return done == 1; }));
}

} // namespace tarnwick::test
