// SPDX-License-Identifier: MIT
#include "protocol/messages.h"

#include <gtest/gtest.h>

namespace tarnwick::simulator::test {

using Status = Request::Status;

TEST(Request, IsUnderstoodOnceItIsWholeWhateverFollows) {
    const QByteArrayList arguments{"login", "", "\xff\n tarnwick/1 0 0\n", "--x"};
    const QByteArray bytes = Request::encode(arguments);
    for (qsizetype size = 0; size < bytes.size(); ++size)
        ASSERT_EQ(Request::decode(bytes.first(size)).status, Status::Incomplete) << size;
    for (const char* rest : {"", "x", "tarnwick/1 0 0\n"}) {
        const Request request = Request::decode(bytes + rest);
        EXPECT_EQ(request.status, Status::Complete);
        EXPECT_EQ(request.arguments, arguments);
    }
}

TEST(Request, RefusesAHeaderThatNeverEnds) {
    EXPECT_EQ(Request::decode(QByteArray(96, 'x')).status, Status::Incomplete);
    EXPECT_EQ(Request::decode(QByteArray(97, 'x')).status, Status::Malformed);
    EXPECT_EQ(Request::decode("tarnwick/1 " + QByteArray(97, '0') + " 0\n").status,
              Status::Malformed);
}

TEST(Request, RefusesMoreThanItsLimits) {
    EXPECT_EQ(Request::decode("tarnwick/1 1 1048576\n").status, Status::Incomplete);
    EXPECT_EQ(Request::decode("tarnwick/1 1 1048577\n").status, Status::Malformed);
    EXPECT_EQ(Request::decode("tarnwick/1 1001 2000\n").status, Status::Malformed);
}

TEST(Reply, SurvivesTheSocket) {
    const Reply reply{
        .kind = Reply::Kind::Flood, .exitStatus = 7, .out = QByteArray("a\0b", 3), .err = "\n"};
    const QByteArray bytes = reply.encode();
    const auto read = Reply::decode(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->kind, reply.kind);
    EXPECT_EQ(read->exitStatus, 7);
    EXPECT_EQ(read->out, reply.out);
    EXPECT_EQ(read->err, "\n");
    for (qsizetype size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(Reply::decode(bytes.first(size))) << size;
}

} // namespace tarnwick::simulator::test
