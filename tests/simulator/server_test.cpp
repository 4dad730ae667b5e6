// SPDX-License-Identifier: MIT
#include "daemon/server.h"
#include "support/waiting.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace tarnwick::simulator::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using tarnwick::test::waitUntil;

namespace {

class ServerTest : public testing::Test {
protected:
    using Tool = std::unique_ptr<QLocalSocket>;

    ServerTest() { EXPECT_EQ(server_.listen(path_), u""_s); }

    Tool connectTool() const {
        auto tool = std::make_unique<QLocalSocket>();
        tool->connectToServer(path_);
        EXPECT_EQ(tool->state(), QLocalSocket::ConnectedState);
        return tool;
    }

    Tool ask(const QByteArrayList& arguments) const {
        Tool tool = connectTool();
        tool->write(Request::encode(arguments));
        return tool;
    }

    static bool isConnected(const Tool& tool) {
        return tool->state() == QLocalSocket::ConnectedState;
    }

    static bool isHungUpOn(const Tool& tool) {
        return waitUntil([&tool] { return !isConnected(tool); });
    }

    std::optional<Reply> reply(const QByteArrayList& arguments) const {
        const Tool tool = ask(arguments);
        EXPECT_TRUE(isHungUpOn(tool));
        return Reply::decode(tool->readAll());
    }

    QByteArrayList log() const {
        const auto log = reply({"simulator", "log"});
        return log ? log->out.trimmed().split('\n') : QByteArrayList();
    }

    /// Waits for as long as the server has patience with who says nothing from now on.
    bool waitForTimeout() const { return isHungUpOn(connectTool()); }

    const QTemporaryDir directory_{u"/tmp/tw-XXXXXX"_s};
    const QString path_ = directory_.filePath(u"run/tarnwick.sock"_s);
    QString problem_;
    Simulator simulator_{World::load(World::builtIn(), problem_).value_or(World()), {}, {}, {}};
    Server server_{simulator_, 2s};
};

} // namespace

TEST_F(ServerTest, HangsUpOnWhoStopsHalfWay) {
    const Tool tool = connectTool();
    QElapsedTimer silence;
    silence.start();
    tool->write("tarnwick/1");
    EXPECT_TRUE(isHungUpOn(tool));
    EXPECT_GE(silence.elapsed(), 1900) << "which a coarse timer may be early by";
    EXPECT_EQ(tool->readAll(), "");
}

TEST_F(ServerTest, WaitsForWhoKeepsTalking) {
    const Tool silent = connectTool();
    const Tool talking = connectTool();
    const QByteArray request = Request::encode({"status", QByteArray(100'000, 'x')});
    qsizetype said = 0;
    EXPECT_TRUE(waitUntil([&] {
        talking->write(request.mid(said++, 1));
        return !isConnected(silent);
    }));
    EXPECT_TRUE(isConnected(talking));
    talking->write(request.mid(said));
    EXPECT_TRUE(isHungUpOn(talking));
    EXPECT_TRUE(Reply::decode(talking->readAll()));
}

TEST_F(ServerTest, WaitsForEverWhenTheAnswerHangs) {
    reply({"simulator", "fault", "hang@up"});
    const Tool tool = ask({"up"});
    EXPECT_TRUE(waitUntil([this] { return log().size() == 1 && !log().first().isEmpty(); }));
    EXPECT_TRUE(waitForTimeout());
    EXPECT_TRUE(isConnected(tool));
    EXPECT_EQ(tool->bytesAvailable(), 0);
}

TEST_F(ServerTest, HoldsASlowAnswerBackExactlyAsLong) {
    reply({"simulator", "fault", "slow:3@up"}); // longer than it waits for the silent
    QElapsedTimer delay;
    delay.start();
    const Tool tool = ask({"up"});
    EXPECT_TRUE(waitForTimeout());
    EXPECT_EQ(tool->bytesAvailable(), 0);
    EXPECT_TRUE(isHungUpOn(tool));
    EXPECT_GE(delay.elapsed(), 3000);
    EXPECT_TRUE(Reply::decode(tool->readAll())) << "all written at once";
}

TEST_F(ServerTest, GivesUpOnWhoDoesNotTakeTheAnswer) {
    for (int i = 0; i < 8; ++i) // a log that fills any socket's buffer
        reply({"status", QByteArray(1'000'000, 'x')});
    EXPECT_GT(log().join().size(), 8'000'000);
    const Tool tool = connectTool();
    tool->setReadBufferSize(1);
    tool->write(Request::encode({"simulator", "log"}));
    EXPECT_TRUE(waitUntil([&tool] { return tool->bytesAvailable() > 0; }));
    EXPECT_TRUE(waitForTimeout());
    QByteArray bytes;
    tool->setReadBufferSize(0);
    EXPECT_TRUE(waitUntil([&] {
        bytes += tool->readAll();
        return !isConnected(tool);
    }));
    bytes += tool->readAll();
    EXPECT_TRUE(bytes.startsWith("tarnwick/1 0 0 "));
    EXPECT_LT(bytes.size(), 8'000'000);
}

TEST_F(ServerTest, IgnoresWhatFollowsARequest) {
    reply({"simulator", "fault", "hang@up"});
    const Tool tool = ask({"up"});
    EXPECT_TRUE(waitUntil([this] { return !log().first().isEmpty(); }));
    tool->write(Request::encode({"down"}));
    EXPECT_TRUE(tool->waitForBytesWritten());
    reply({"status"}); // later than "down" would have been
    EXPECT_EQ(log().size(), 2);
}

TEST_F(ServerTest, EndsWithTheOtherEnd) {
    reply({"simulator", "fault", "hang@up"});
    Tool tool = ask({"up"});
    EXPECT_TRUE(waitUntil([this] { return !log().first().isEmpty(); }));
    reply({"status"});
    tool.reset();
    reply({"status"});
    const QByteArrayList lines = log();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[1].contains("\"open\":2"));
    EXPECT_TRUE(lines[2].contains("\"open\":1"));
}

} // namespace tarnwick::simulator::test
