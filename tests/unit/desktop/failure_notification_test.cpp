// SPDX-License-Identifier: MIT
#include "desktop/failure_notification.h"
#include "support/private_bus.h"
#include "support/waiting.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>

#include <gtest/gtest.h>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;
using test::runEventLoopFor;
using test::waitUntil;

namespace {

/// A notification service on a connection of its own, which answers as it is made to.
class NotificationService : public QDBusVirtualObject {
public:
    explicit NotificationService(const QString& address)
        : connection_(QDBusConnection::connectToBus(address, u"notification service"_s)) {
        connection_.registerVirtualObject(u"/org/freedesktop/Notifications"_s, this);
        connection_.registerService(u"org.freedesktop.Notifications"_s);
    }

    ~NotificationService() override {
        connection_.unregisterService(u"org.freedesktop.Notifications"_s);
        connection_.unregisterObject(u"/org/freedesktop/Notifications"_s);
        QDBusConnection::disconnectFromBus(u"notification service"_s);
    }

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        calls += message;
        if (isSilent)
            return true;
        if (message.member() == held)
            waiting += message;
        else
            answer(message, connection);
        return true;
    }

    void answer(const QDBusMessage& message, const QDBusConnection& connection) {
        QVariant value = u"no such thing"_s;
        if (!answersNonsense && message.member() == "GetCapabilities"_L1)
            value = capabilities;
        if (!answersNonsense && message.member() == "Notify"_L1)
            value = nextId++;
        connection.send(message.createReply(value));
    }

    /// Answers what has waited, and from now on all at once.
    void goOn() {
        held.clear();
        for (const QDBusMessage& message : std::exchange(waiting, {}))
            answer(message, connection_);
    }

    QList<QDBusMessage> all(const QString& member) const {
        QList<QDBusMessage> found;
        for (const QDBusMessage& call : calls) {
            if (call.member() == member)
                found += call;
        }
        return found;
    }

    QStringList bodies() const {
        QStringList texts;
        for (const QDBusMessage& call : all(u"Notify"_s))
            texts += call.arguments().at(4).toString();
        return texts;
    }

    QList<uint> replaced() const {
        QList<uint> ids;
        for (const QDBusMessage& call : all(u"Notify"_s))
            ids += call.arguments().at(1).toUInt();
        return ids;
    }

    QList<QDBusMessage> calls;
    QStringList capabilities{u"body"_s};
    uint nextId = 7;
    QString held; ///< Calls of this method wait for an answer.
    QList<QDBusMessage> waiting;
    bool isSilent = false;
    bool answersNonsense = false;

private:
    QDBusConnection connection_;
};

class FailureNotificationTest : public testing::Test {
protected:
    FailureNotificationTest() {
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().toUtf8());
        bus_.start();
        service_ = std::make_unique<NotificationService>(bus_.address());
    }

    bool waitForBodies(const QStringList& wanted) {
        return waitUntil([&] { return service_->bodies() == wanted; });
    }

    test::PrivateBus bus_;
    std::unique_ptr<NotificationService> service_;
    FailureNotification notification_;
};

} // namespace

TEST_F(FailureNotificationTest, ShowsTheText) {
    notification_.show(u"error: no such profile"_s);
    ASSERT_TRUE(waitForBodies({u"error: no such profile"_s}));
    const QVariantList arguments = service_->all(u"Notify"_s).constFirst().arguments();
    EXPECT_EQ(service_->all(u"Notify"_s).constFirst().signature(), u"susssasa{sv}i"_s);
    EXPECT_EQ(arguments.at(0), u"Tarnwick Network"_s);
    EXPECT_EQ(arguments.at(3), u"Tarnwick Network"_s);
}

TEST_F(FailureNotificationTest, TheNextReplacesItAndTheSameTextIsShownAgain) {
    QStringList wanted;
    for (const QString& text : {u"first"_s, u"second"_s, u"second"_s}) {
        notification_.show(text);
        wanted += text;
        ASSERT_TRUE(waitForBodies(wanted));
    }
    // An answer may still be on its way.
    EXPECT_EQ(service_->replaced().mid(0, 2), QList<uint>({0, 7}));
    EXPECT_EQ(service_->replaced().constLast(), 8U);
}

TEST_F(FailureNotificationTest, ManyAtOnceAreNotStacked) {
    for (int i = 0; i < 20; ++i)
        notification_.show(QString::number(i));
    ASSERT_TRUE(waitUntil([&] { return service_->bodies().contains(u"19"_s); }));
    EXPECT_LE(service_->bodies().size(), 2);
}

TEST_F(FailureNotificationTest, IsWithdrawn) {
    notification_.show(u"first"_s);
    ASSERT_TRUE(waitForBodies({u"first"_s}));
    notification_.withdraw();
    ASSERT_TRUE(waitUntil([&] { return !service_->all(u"CloseNotification"_s).isEmpty(); }));
    EXPECT_EQ(service_->all(u"CloseNotification"_s).constFirst().arguments(), QVariantList{7U});
    notification_.show(u"second"_s);
    ASSERT_TRUE(waitForBodies({u"first"_s, u"second"_s}));
    EXPECT_EQ(service_->replaced(), QList<uint>({0, 0}));
}

TEST_F(FailureNotificationTest, WithdrawingNoneAsksNothing) {
    notification_.withdraw();
    runEventLoopFor(std::chrono::milliseconds(200));
    EXPECT_TRUE(service_->calls.isEmpty());
}

TEST_F(FailureNotificationTest, NoMarkupIsTakenFromTheText) {
    service_->capabilities += u"body-markup"_s;
    notification_.show(u"<b>a</b> & \"c\""_s);
    EXPECT_TRUE(waitForBodies({u"&lt;b&gt;a&lt;/b&gt; &amp; &quot;c&quot;"_s}));
}

TEST_F(FailureNotificationTest, WhereThereIsNoServiceNothingIsShownLater) {
    service_.reset();
    notification_.show(u"unseen"_s);
    runEventLoopFor(std::chrono::milliseconds(500));
    service_ = std::make_unique<NotificationService>(bus_.address());
    notification_.show(u"seen"_s);
    EXPECT_TRUE(waitForBodies({u"seen"_s}));
}

TEST_F(FailureNotificationTest, WhereThereIsNoBusNothingIsShownLater) {
    service_.reset();
    bus_.stop();
    notification_.show(u"unseen"_s);
    runEventLoopFor(std::chrono::milliseconds(200));
    notification_.show(u"unseen either"_s);
    bus_.start();
    service_ = std::make_unique<NotificationService>(bus_.address());
    runEventLoopFor(std::chrono::milliseconds(2500));
    notification_.show(u"seen"_s);
    EXPECT_TRUE(waitForBodies({u"seen"_s}));
}

TEST_F(FailureNotificationTest, ANewServiceIsNotAskedToReplaceAnOldOnesNotification) {
    notification_.show(u"first"_s);
    ASSERT_TRUE(waitForBodies({u"first"_s}));
    runEventLoopFor(std::chrono::milliseconds(200));
    service_.reset();
    service_ = std::make_unique<NotificationService>(bus_.address());
    runEventLoopFor(std::chrono::milliseconds(200));
    notification_.show(u"second"_s);
    ASSERT_TRUE(waitForBodies({u"second"_s}));
    EXPECT_EQ(service_->replaced(), QList<uint>({0}));
}

TEST_F(FailureNotificationTest, AServiceThatAnswersNonsenseIsHarmless) {
    service_->answersNonsense = true;
    notification_.show(u"first"_s);
    ASSERT_TRUE(waitForBodies({u"first"_s}));
    notification_.show(u"second"_s);
    ASSERT_TRUE(waitForBodies({u"first"_s, u"second"_s}));
    EXPECT_EQ(service_->replaced(), QList<uint>({0, 0}));
}

TEST_F(FailureNotificationTest, AServiceThatDoesNotAnswerIsAskedAgainByTheNext) {
    service_->isSilent = true;
    notification_.show(u"first"_s);
    ASSERT_TRUE(waitUntil([&] { return service_->calls.size() == 1; }));
    notification_.show(u"second"_s);
    service_->isSilent = false;
    EXPECT_TRUE(waitForBodies({u"second"_s}));
}

// A desktop that hangs for a while shows the notification when it goes on.
TEST_F(FailureNotificationTest, OneThatIsShownLateIsWithdrawnAllTheSame) {
    service_->held = u"Notify"_s;
    notification_.show(u"first"_s);
    ASSERT_TRUE(waitForBodies({u"first"_s}));
    runEventLoopFor(std::chrono::milliseconds(5500)); // longer than a service may think otherwise
    notification_.withdraw();
    service_->goOn();
    ASSERT_TRUE(waitUntil([&] { return !service_->all(u"CloseNotification"_s).isEmpty(); }));
    EXPECT_EQ(service_->all(u"CloseNotification"_s).constFirst().arguments(), QVariantList{7U});
}

TEST_F(FailureNotificationTest, WhatIsWithdrawnBeforeItIsShownIsNotShown) {
    service_->held = u"GetCapabilities"_s;
    notification_.show(u"first"_s);
    ASSERT_TRUE(waitUntil([&] { return service_->waiting.size() == 1; }));
    notification_.withdraw();
    service_->goOn();
    notification_.show(u"second"_s);
    ASSERT_TRUE(waitUntil([&] { return !service_->bodies().isEmpty(); }));
    EXPECT_EQ(service_->bodies(), QStringList{u"second"_s});
}

TEST_F(FailureNotificationTest, GoingWhileACallRunsIsHarmless) {
    service_->isSilent = true;
    {
        FailureNotification gone;
        gone.show(u"first"_s);
        ASSERT_TRUE(waitUntil([&] { return service_->calls.size() == 1; }));
    }
    runEventLoopFor(std::chrono::milliseconds(100));
}

} // namespace tarnwick
