// SPDX-License-Identifier: MIT
#include "desktop/single_instance.h"
#include "support/waiting.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <vector>

namespace tarnwick {

using namespace Qt::StringLiterals;
using test::waitUntil;

namespace {

constexpr std::chrono::seconds patience{10};

class SingleInstanceChannelTest : public testing::Test {
protected:
    /// Asks as a second launch does, while this thread runs the first one's event loop.
    bool ask(const QByteArray& token = {}) {
        auto asked = std::async(std::launch::async, [this, token] {
            return SingleInstanceChannel::askToShow(path_, token, patience);
        });
        waitUntil(
            [&] { return asked.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
        return asked.get();
    }

    void listen() {
        channel_ = std::make_unique<SingleInstanceChannel>(path_);
        QObject::connect(channel_.get(), &SingleInstanceChannel::showRequested, channel_.get(),
                         [this](const QByteArray& token) { tokens_.append(token); });
    }

    QTemporaryDir dir_;
    QString path_ = dir_.filePath(u"socket"_s);
    std::unique_ptr<SingleInstanceChannel> channel_;
    QList<QByteArray> tokens_;
};

} // namespace

TEST_F(SingleInstanceChannelTest, ASecondLaunchIsHeard) {
    listen();
    EXPECT_TRUE(ask());
    EXPECT_TRUE(ask("token-1"));
    EXPECT_EQ(tokens_, QList<QByteArray>({QByteArray(), QByteArray("token-1")}));
}

TEST_F(SingleInstanceChannelTest, ASocketLeftByACrashIsReplaced) {
    QFile stale(path_);
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.close();
    listen();
    EXPECT_TRUE(ask());
}

TEST_F(SingleInstanceChannelTest, NobodyListeningIsAFailureAfterAWhile) {
    EXPECT_FALSE(SingleInstanceChannel::askToShow(path_, {}, std::chrono::milliseconds(120)));
}

TEST_F(SingleInstanceChannelTest, StrangeRequestsAreHungUpOn) {
    listen();
    for (const QByteArray& request : {QByteArray("hide\n"), QByteArray(2000, 'x')}) {
        const auto stranger = LocalSocket::connectedTo(path_);
        ASSERT_TRUE(stranger.write(request));
        EXPECT_TRUE(waitUntil([&] { return !stranger.read(); }));
    }
    EXPECT_TRUE(tokens_.isEmpty());
    EXPECT_TRUE(ask());
}

TEST_F(SingleInstanceChannelTest, RequestThatBreaksOffIsNone) {
    listen();
    LocalSocket::connectedTo(path_).write("show");
    EXPECT_TRUE(ask("after"));
    EXPECT_EQ(tokens_, QList<QByteArray>({"after"}));
}

TEST_F(SingleInstanceChannelTest, RequestMayArriveInPieces) {
    listen();
    const auto caller = LocalSocket::connectedTo(path_);
    ASSERT_TRUE(caller.write("show to"));
    EXPECT_TRUE(ask("between"));
    ASSERT_TRUE(caller.write("ken\n"));
    EXPECT_TRUE(waitUntil([&] { return tokens_.size() == 2; }));
    EXPECT_EQ(tokens_.constLast(), "token");
}

TEST_F(SingleInstanceChannelTest, CallerThatDoesNotWaitForTheAnswerHarmsNobody) {
    listen();
    LocalSocket::connectedTo(path_).write("show gone\n");
    EXPECT_TRUE(waitUntil([&] { return tokens_.size() == 1; }));
    EXPECT_TRUE(ask());
}

TEST_F(SingleInstanceChannelTest, ASilentCallerHoldsUpNobody) {
    listen();
    const auto silent = LocalSocket::connectedTo(path_);
    ASSERT_TRUE(silent.isOpen());
    EXPECT_TRUE(ask());
    EXPECT_EQ(tokens_.size(), 1);
}

TEST_F(SingleInstanceChannelTest, SilentCallersAreHungUpOnAfterAWhile) {
    channel_ = std::make_unique<SingleInstanceChannel>(path_, std::chrono::milliseconds(50));
    const auto silent = LocalSocket::connectedTo(path_);
    const auto unfinished = LocalSocket::connectedTo(path_);
    ASSERT_TRUE(unfinished.write("sho"));
    EXPECT_TRUE(waitUntil([&] { return !silent.read() && !unfinished.read(); }));
}

TEST_F(SingleInstanceChannelTest, ManySilentCallersTakeFewDescriptorsAndKeepNobodyOut) {
    channel_ = std::make_unique<SingleInstanceChannel>(path_, std::chrono::hours(1));
    std::vector<LocalSocket> silent;
    ASSERT_TRUE(waitUntil([&] { // as many as the system queues at a time
        LocalSocket caller = LocalSocket::connectedTo(path_);
        if (caller.isOpen())
            silent.push_back(std::move(caller));
        return silent.size() == 60;
    }));
    const auto isOpen = [](const LocalSocket& caller) {
        return caller.read().has_value();
    };
    EXPECT_TRUE(
        waitUntil([&] { return std::count_if(silent.begin(), silent.end(), isOpen) <= 8; }));
    EXPECT_TRUE(ask());
}

TEST_F(SingleInstanceChannelTest, NoSocketIsLeftBehind) {
    listen();
    channel_.reset();
    EXPECT_FALSE(QFile::exists(path_));
}

TEST_F(SingleInstanceChannelTest, PathThatIsTooLongIsListenedAtByNobody) {
    path_ = dir_.filePath(QString(200, u'x'));
    listen();
    EXPECT_FALSE(SingleInstanceChannel::askToShow(path_, {}, std::chrono::milliseconds(120)));
}

TEST_F(SingleInstanceChannelTest, OnlyItsUserCanConnect) {
    listen();
    EXPECT_EQ(QFile::permissions(path_) &
                  (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
              QFile::Permissions());
}

} // namespace tarnwick
