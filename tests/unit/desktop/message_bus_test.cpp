// SPDX-License-Identifier: MIT
#include "desktop/message_bus_linux.h"
#include "support/private_bus.h"
#include "support/waiting.h"

#include <QDBusConnectionInterface>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QUuid>

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;
using test::waitUntil;

namespace {

class MessageBusTest : public testing::Test {
protected:
    void lookFor(const QString& address) {
        seeker_ = std::make_unique<MessageBus>(address);
        QObject::connect(seeker_.get(), &MessageBus::connected, seeker_.get(),
                         [this] { events_ += u"connected"_s; });
        QObject::connect(seeker_.get(), &MessageBus::unavailable, seeker_.get(),
                         [this] { events_ += u"unavailable"_s; });
    }

    bool waitForEvents(const QStringList& wanted) {
        return waitUntil([&] { return events_ == wanted; });
    }

    test::PrivateBus bus_;
    std::unique_ptr<MessageBus> seeker_;
    QStringList events_;
};

} // namespace

TEST_F(MessageBusTest, OneThatIsThereIsConnectedTo) {
    bus_.start();
    lookFor(bus_.address());
    EXPECT_TRUE(events_.isEmpty());
    EXPECT_FALSE(seeker_->isConnected());
    ASSERT_TRUE(waitForEvents({u"connected"_s}));
    EXPECT_TRUE(seeker_->isConnected());
    EXPECT_TRUE(seeker_->connection().interface()->isServiceRegistered(
        seeker_->connection().baseService()));
}

TEST_F(MessageBusTest, OneThatComesLaterIsConnectedTo) {
    lookFor(bus_.address());
    ASSERT_TRUE(waitForEvents({u"unavailable"_s}));
    bus_.start();
    EXPECT_TRUE(waitForEvents({u"unavailable"_s, u"connected"_s}));
}

TEST_F(MessageBusTest, OneThatDiesAndComesBackIsConnectedToAgain) {
    bus_.start();
    lookFor(bus_.address());
    QStringList wanted{u"connected"_s};
    ASSERT_TRUE(waitForEvents(wanted));
    for (int i = 0; i < 2; ++i) {
        bus_.stop();
        wanted += u"unavailable"_s;
        ASSERT_TRUE(waitForEvents(wanted));
        EXPECT_FALSE(seeker_->isConnected());
        bus_.start();
        wanted += u"connected"_s;
        ASSERT_TRUE(waitForEvents(wanted));
        EXPECT_TRUE(seeker_->connection().isConnected());
    }
}

TEST_F(MessageBusTest, OneThatSaysNothingIsUnavailableAndBlocksNobody) {
    auto mute = LocalSocket::listeningAt(bus_.socket());
    ASSERT_TRUE(mute.isOpen());
    EXPECT_TRUE(MessageBus::isUnresponsive(bus_.address(), std::chrono::milliseconds(50)));
    lookFor(bus_.address());
    ASSERT_TRUE(waitForEvents({u"unavailable"_s}));
    mute = LocalSocket();
    bus_.start();
    EXPECT_FALSE(MessageBus::isUnresponsive(bus_.address(), std::chrono::seconds(20)));
    EXPECT_TRUE(waitForEvents({u"unavailable"_s, u"connected"_s}));
}

TEST_F(MessageBusTest, OneThatHangsUpIsUnavailable) {
    const auto rude = LocalSocket::listeningAt(bus_.socket());
    lookFor(bus_.address());
    int hungUpOn = 0;
    ASSERT_TRUE(waitUntil([&] {
        if (rude.accept().isOpen())
            ++hungUpOn;
        return hungUpOn == 2;
    }));
    EXPECT_EQ(events_, QStringList{u"unavailable"_s});
}

TEST_F(MessageBusTest, AddressesOfTheAbstractNamespaceAreUnderstood) {
    const QString address =
        u"unix:abstract=/tmp/tarnwick%2dtest-"_s + QUuid::createUuid().toString(QUuid::Id128);
    EXPECT_FALSE(MessageBus::isUnresponsive(address, std::chrono::milliseconds(0)));
    lookFor(address + u",guid=0123456789abcdef0123456789abcdef"_s);
    ASSERT_TRUE(waitForEvents({u"unavailable"_s}));
    seeker_.reset();
    events_.clear();
    bus_.start(address);
    lookFor(address);
    EXPECT_TRUE(waitForEvents({u"connected"_s}));
}

TEST_F(MessageBusTest, AddressesThatMeanNothingAreUnavailable) {
    for (const QString& address :
         {u""_s, u"rubbish"_s, u"unix:"_s, u"disabled:"_s, u"unix:path="_s,
          u"unix:path="_s + QString(400, u'x'), u"unixexec:path=/nope"_s}) {
        SCOPED_TRACE(qPrintable(address));
        EXPECT_FALSE(MessageBus::isUnresponsive(address, std::chrono::seconds(20)));
        events_.clear();
        lookFor(address);
        EXPECT_TRUE(waitForEvents({u"unavailable"_s}));
    }
}

} // namespace tarnwick
