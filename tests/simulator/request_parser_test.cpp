// SPDX-License-Identifier: MIT
#include "protocol/messages.h"
#include "protocol/request_parser.h"

#include <gtest/gtest.h>

namespace tarnwick::simulator::test {

TEST(RequestParser, UnderstandsARequestSplitAnywhere) {
    const std::vector<std::string> arguments{"login", "", "\xff\n tarnwick/1 0 0\n", "--x"};
    const std::string bytes = encodeRequest(arguments);
    for (std::size_t split = 0; split <= bytes.size(); ++split) {
        RequestParser parser;
        parser.feed(std::string_view(bytes).substr(0, split));
        ASSERT_EQ(parser.status() == RequestParser::Status::Complete, split == bytes.size());
        parser.feed(std::string_view(bytes).substr(split));
        ASSERT_EQ(parser.status(), RequestParser::Status::Complete);
        EXPECT_EQ(parser.arguments(), arguments);
    }
}

TEST(RequestParser, RefusesAHeaderThatNeverEnds) {
    RequestParser parser;
    EXPECT_EQ(parser.feed(std::string(96, 'x')), RequestParser::Status::Incomplete);
    EXPECT_EQ(parser.feed("x"), RequestParser::Status::Malformed);
    EXPECT_EQ(parser.feed("\n"), RequestParser::Status::Malformed);
}

TEST(RequestParser, RefusesMoreThanItsLimits) {
    EXPECT_EQ(RequestParser().feed("tarnwick/1 1 1048576\n"), RequestParser::Status::Incomplete);
    EXPECT_EQ(RequestParser().feed("tarnwick/1 1 1048577\n"), RequestParser::Status::Malformed);
    EXPECT_EQ(RequestParser().feed("tarnwick/1 1001 2000\n"), RequestParser::Status::Malformed);
}

TEST(Reply, SurvivesTheSocket) {
    const Reply reply{
        .kind = Reply::Kind::Flood, .exitStatus = 7, .out = std::string("a\0b", 3), .err = "\n"};
    const std::string bytes = encodeReply(reply);
    const auto read = decodeReply(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->kind, reply.kind);
    EXPECT_EQ(read->exitStatus, 7);
    EXPECT_EQ(read->out, reply.out);
    EXPECT_EQ(read->err, "\n");
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(decodeReply(std::string_view(bytes).substr(0, size))) << size;
}

} // namespace tarnwick::simulator::test
