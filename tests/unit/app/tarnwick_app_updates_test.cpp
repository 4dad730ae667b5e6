// SPDX-License-Identifier: MIT
#include "app/tarnwick_app.h"
#include "http_server.h"
#include "support/controller_world.h"
#include "support/waiting.h"
#include "ui/panel/actions_view.h"
#include "ui/windows/update_alert.h"

#include <QApplication>
#include <QDesktopServices>
#include <QNetworkProxy>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <future>

namespace tarnwick {

using namespace Qt::StringLiterals;
using test::waitUntil;

namespace {

const QByteArray newer = test::HttpServer::answer("200 OK", R"({"current": "9.0"})");

/// Takes the place of the desktop's browser.
class Browser : public QObject {
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(u"https"_s, this, "open"); }

    ~Browser() override { QDesktopServices::unsetUrlHandler(u"https"_s); }

    QList<QUrl> opened;

public Q_SLOTS:

    void open(const QUrl& page) { opened.append(page); }
};

class TarnwickAppUpdatesTest : public testing::Test {
protected:
    TarnwickAppUpdatesTest() {
        QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::NoProxy));
    }

    template <typename T>
    static QList<T*> shown() {
        QList<T*> widgets;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* itself = qobject_cast<T*>(window))
                widgets.append(itself);
            widgets += window->findChildren<T*>();
        }
        widgets.removeIf([](T* widget) { return !widget->isVisible(); });
        return widgets;
    }

    /// Opens the panel, as a second launch does, and asks for a check.
    MenuButton* askForUpdates() {
        auto launch = std::async(std::launch::async, [this] {
            return SingleInstanceChannel::askToShow(socket_, {}, std::chrono::seconds(10));
        });
        EXPECT_TRUE(waitUntil([&launch] {
            return launch.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        }));
        MenuButton* entry = nullptr;
        EXPECT_TRUE(waitUntil([&entry] {
            for (auto* button : shown<MenuButton>())
                if (button->content().title == u"Check for Updates..."_s)
                    entry = button;
            return entry != nullptr;
        }));
        if (entry != nullptr)
            entry->click();
        return entry;
    }

    static UpdateAlert* waitForAlert() {
        EXPECT_TRUE(waitUntil([] { return !shown<UpdateAlert>().isEmpty(); }));
        return shown<UpdateAlert>().value(0);
    }

    UpdateServiceOptions updatesOf(const test::HttpServer& server) const {
        return {.manifestURL = server.url(), .installed = u"1.0"_s};
    }

    QTemporaryDir dir_;
    QString socket_ = dir_.filePath(u"socket"_s);
    test::ControllerWorld world_;
    Browser browser_;
};

TEST_F(TarnwickAppUpdatesTest, DownloadOpensItsPageInTheDesktopsBrowser) {
    const test::HttpServer server(newer);
    const TarnwickApp app(socket_, world_.options(), updatesOf(server));
    ASSERT_NE(askForUpdates(), nullptr);
    UpdateAlert* alert = waitForAlert();
    ASSERT_NE(alert, nullptr);
    for (auto* button : alert->findChildren<QPushButton*>())
        if (button->text() == u"Download"_s)
            QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_TRUE(waitUntil([this] { return !browser_.opened.isEmpty(); }));
    EXPECT_EQ(browser_.opened, QList{UpdateService::downloadPageURL()});
}

TEST_F(TarnwickAppUpdatesTest, AskingAgainWhileACheckRunsBeginsNoSecondOne) {
    bool mayAnswer = false;
    const test::HttpServer server([&mayAnswer](QTcpSocket& client, const QByteArray&) {
        auto* clock = new QTimer(&client);
        QObject::connect(clock, &QTimer::timeout, &client, [&mayAnswer, &client] {
            if (!mayAnswer)
                return;
            client.write(newer);
            client.disconnectFromHost();
        });
        clock->start(std::chrono::milliseconds(5));
    });
    const TarnwickApp app(socket_, world_.options(), updatesOf(server));
    MenuButton* entry = askForUpdates();
    ASSERT_NE(entry, nullptr);
    ASSERT_TRUE(waitUntil([&server] { return server.requestCount() == 1; }));
    entry->click();
    mayAnswer = true;
    waitForAlert();
    test::runEventLoopFor(std::chrono::milliseconds(200)); // for a second that must not come
    EXPECT_EQ(server.requestCount(), 1);
    EXPECT_EQ(shown<UpdateAlert>().size(), 1);
}

TEST_F(TarnwickAppUpdatesTest, AskingAgainWhileTheAlertIsUpBringsItToTheFront) {
    const test::HttpServer server(newer);
    const TarnwickApp app(socket_, world_.options(), updatesOf(server));
    MenuButton* entry = askForUpdates();
    ASSERT_NE(entry, nullptr);
    UpdateAlert* alert = waitForAlert();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(waitUntil([&other] { return other.isActiveWindow(); }));
    entry->click();
    EXPECT_TRUE(waitUntil([alert] { return alert->isActiveWindow(); }));
    test::runEventLoopFor(std::chrono::milliseconds(200)); // for a second that must not come
    EXPECT_EQ(shown<UpdateAlert>(), QList{alert});
    EXPECT_EQ(server.requestCount(), 1);
}

TEST_F(TarnwickAppUpdatesTest, AnsweredAlertMakesRoomForTheNextCheck) {
    const test::HttpServer server(newer);
    const TarnwickApp app(socket_, world_.options(), updatesOf(server));
    for (int count = 1; count <= 2; ++count) {
        ASSERT_NE(askForUpdates(), nullptr);
        UpdateAlert* alert = waitForAlert();
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(server.requestCount(), count);
        alert->close();
        ASSERT_TRUE(waitUntil([] { return shown<UpdateAlert>().isEmpty(); }));
    }
}

} // namespace

} // namespace tarnwick

#include "tarnwick_app_updates_test.moc"
