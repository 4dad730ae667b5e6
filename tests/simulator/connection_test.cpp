// SPDX-License-Identifier: MIT
#include "daemon/connection.h"
#include "protocol/messages.h"

#include <gtest/gtest.h>

#include <array>
#include <sys/socket.h>
#include <unistd.h>

namespace tarnwick::simulator::test {

namespace {

using namespace std::chrono_literals;
using Phase = Connection::Phase;

class ConnectionTest : public testing::Test {
protected:
    ConnectionTest() {
        std::array<int, 2> ends{-1, -1};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
        tool_ = Descriptor(ends[0]);
        Descriptor mine(ends[1]);
        mine.setNonBlocking();
        connection_.emplace(std::move(mine), start_);
    }

    bool say(const std::string& bytes, std::chrono::milliseconds after = 0ms) {
        EXPECT_EQ(write(tool_.get(), bytes.data(), bytes.size()),
                  static_cast<ssize_t>(bytes.size()));
        return connection_->read(start_ + after);
    }

    const Connection::Time start_{1h};
    Descriptor tool_;
    std::optional<Connection> connection_;
};

} // namespace

TEST_F(ConnectionTest, HangsUpOnWhoStopsHalfWay) {
    EXPECT_FALSE(say("tarnwick/1", 4s));
    connection_->tick(start_ + 13s);
    EXPECT_EQ(connection_->phase(), Phase::Asking);
    connection_->tick(start_ + 14s);
    EXPECT_EQ(connection_->phase(), Phase::Over);
}

TEST_F(ConnectionTest, WaitsForEverWhenTheAnswerHangs) {
    EXPECT_TRUE(say(encodeRequest({"up"})));
    connection_->answer({.kind = Reply::Kind::Hang}, start_);
    EXPECT_FALSE(connection_->deadline());
    connection_->tick(start_ + 24h);
    EXPECT_EQ(connection_->phase(), Phase::Waiting);
}

TEST_F(ConnectionTest, HoldsASlowAnswerBackExactlyAsLong) {
    EXPECT_TRUE(say(encodeRequest({"up"})));
    connection_->answer({.delay = 3s}, start_);
    EXPECT_EQ(connection_->deadline(), start_ + 3s);
    connection_->tick(start_ + 2999ms);
    EXPECT_EQ(connection_->phase(), Phase::Waiting);
    connection_->tick(start_ + 3s);
    EXPECT_EQ(connection_->phase(), Phase::Over); // all written at once
}

TEST_F(ConnectionTest, GivesUpOnWhoDoesNotTakeTheAnswer) {
    EXPECT_TRUE(say(encodeRequest({"up"})));
    connection_->answer(Reply::text(std::string(8 << 20, 'x')), start_);
    EXPECT_EQ(connection_->phase(), Phase::Answering);
    connection_->write(start_ + 5s); // nothing fits any more
    connection_->tick(start_ + 10s);
    EXPECT_EQ(connection_->phase(), Phase::Over);
}

TEST_F(ConnectionTest, EndsWithTheOtherEnd) {
    tool_ = Descriptor();
    EXPECT_FALSE(connection_->read(start_));
    EXPECT_EQ(connection_->phase(), Phase::Over);
}

} // namespace tarnwick::simulator::test
