// SPDX-License-Identifier: MIT
#include "checking.h"
#include "http_server.h"

#include <QElapsedTimer>
#include <QNetworkProxyFactory>
#include <QSemaphore>
#include <QThread>
#include <QTimer>

namespace tarnwick::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QByteArray newer = HttpServer::answer("200 OK", R"({"current": "1.5.0"})");

UpdateCheckResult outdated() {
    return Outdated{u"1.4.2"_s, u"1.5.0"_s};
}

/// How a search for a proxy goes on, outliving the search.
struct Search {
    QSemaphore begun;
    QSemaphore mayEnd;
};

QNetworkProxy proxyAt(const QUrl& url) {
    return {QNetworkProxy::HttpProxy, url.host(), static_cast<quint16>(url.port())};
}

/// Searches until the test lets it end, as a script does that waits for a network.
class HangingResolver : public QNetworkProxyFactory {
public:
    explicit HangingResolver(std::shared_ptr<Search> search) : search_(std::move(search)) {}

    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery&) override {
        search_->begun.release();
        search_->mayEnd.tryAcquire(1, 15s); // bounds a test that fails
        return {proxyAt(QUrl(u"http://127.0.0.1:1"_s))};
    }

private:
    const std::shared_ptr<Search> search_;
};

class LateResolver : public QNetworkProxyFactory {
public:
    explicit LateResolver(const QUrl& found) : found_(proxyAt(found)) {}

    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery&) override {
        QThread::msleep(200);
        return {found_};
    }

private:
    const QNetworkProxy found_;
};

/// An address for which Qt looks for a proxy, which it does not for one of this machine.
QUrl farAway() {
    return QUrl(u"http://manifest.example/x"_s);
}

UpdateCheckResult resultThrough(const QUrl& proxy,
                                std::chrono::milliseconds limit = generousLimit) {
    const auto options = optionsFor(farAway(), u"1.4.2"_s, limit);
    QNetworkProxy::setApplicationProxy(proxyAt(proxy));
    return resultOf(options);
}

} // namespace

TEST(UpdateProxy, SearchThatHangsEndsAtTheTimeLimitWhileTheEventLoopRuns) {
    const auto options = optionsFor(farAway(), u"1.4.2"_s, 300ms);
    const auto search = std::make_shared<Search>();
    QNetworkProxyFactory::setApplicationProxyFactory(new HangingResolver(search));
    UpdateService service(options);
    std::optional<UpdateCheckResult> result;
    QElapsedTimer sinceCall;
    sinceCall.start();
    service.check([&result](const UpdateCheckResult& outcome) { result = outcome; });
    EXPECT_LT(sinceCall.elapsed(), 10'000) << "the call waited for the search";
    EXPECT_TRUE(waitUntil([&result] { return result.has_value(); }));
    EXPECT_EQ(result, checkError(u"The request timed out."_s));
    EXPECT_TRUE(search->begun.tryAcquire(1, 10s)) << "nobody searched";
    search->mayEnd.release();
}

TEST(UpdateProxy, ServiceThatGoesDoesNotWaitForASearch) {
    const auto options = optionsFor(farAway(), u"1.4.2"_s);
    const auto search = std::make_shared<Search>();
    QNetworkProxyFactory::setApplicationProxyFactory(new HangingResolver(search));
    QElapsedTimer leaving;
    {
        UpdateService service(options);
        service.check([](const UpdateCheckResult&) { ADD_FAILURE() << "completed"; });
        ASSERT_TRUE(waitUntil([&search] { return search->begun.tryAcquire(); }));
        leaving.start();
    }
    EXPECT_LT(leaving.elapsed(), 10'000);
    search->mayEnd.release();
    runEventLoopFor(200ms); // the search ends: whatever it reports is for nobody
}

TEST(UpdateProxy, SearchThatAnswersLateIsWaitedFor) {
    const HttpServer proxy(newer);
    const auto options = optionsFor(farAway(), u"1.4.2"_s);
    QNetworkProxyFactory::setApplicationProxyFactory(new LateResolver(proxy.url()));
    EXPECT_EQ(resultOf(options), outdated());
}

TEST(UpdateProxy, ManifestComesThroughAProxyThatIsSlow) {
    const HttpServer proxy([](QTcpSocket& client, const QByteArray&) {
        QTimer::singleShot(100ms, &client, [&client] {
            client.write(newer);
            client.disconnectFromHost();
        });
    });
    EXPECT_EQ(resultThrough(proxy.url()), outdated());
    ASSERT_EQ(proxy.requestCount(), 1);
    EXPECT_TRUE(proxy.requestHeads()[0].startsWith("GET http://manifest.example/x HTTP/1.1\r\n"));
}

TEST(UpdateProxy, OneThatNeverAnswersTimesOut) {
    const HttpServer proxy([](QTcpSocket&, const QByteArray&) {});
    EXPECT_EQ(resultThrough(proxy.url(), 300ms), checkError(u"The request timed out."_s));
}

TEST(UpdateProxy, OneThatIsDownIsAnErrorWithTheTransportsText) {
    QUrl url;
    {
        const HttpServer proxy("");
        url = proxy.url();
    }
    EXPECT_EQ(resultThrough(url), checkError(u"Connection refused"_s));
}

TEST(UpdateProxy, OneThatWantsAPasswordIsAnErrorThatSaysSo) {
    const HttpServer proxy(HttpServer::answer("407 Proxy Authentication Required", {},
                                              "Proxy-Authenticate: Basic realm=\"x\"\r\n"));
    EXPECT_EQ(resultThrough(proxy.url()), checkError(u"Server returned HTTP 407"_s));
}

// With the real limit, which is eight seconds.
TEST(UpdateProxy, CheckThatHangsTakesEightSeconds) {
    const HttpServer server([](QTcpSocket&, const QByteArray&) {});
    UpdateServiceOptions options = optionsFor(server.url(), u"1.4.2"_s);
    options.timeLimit = UpdateServiceOptions().timeLimit;
    EXPECT_EQ(options.timeLimit, 8000ms);
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(resultOf(options), checkError(u"The request timed out."_s));
    EXPECT_GE(time.elapsed(), 8000);
    EXPECT_LT(time.elapsed(), 16'000);
}

} // namespace tarnwick::test
