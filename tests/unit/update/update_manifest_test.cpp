// SPDX-License-Identifier: MIT
#include "update/update_manifest.h"

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QString outcomeOf(const QByteArray& body) {
    const auto parsed = parseUpdateManifest(body);
    const auto* manifest = std::get_if<UpdateManifest>(&parsed);
    return manifest ? u"version "_s + manifest->current : std::get<QString>(parsed);
}

} // namespace

TEST(UpdateManifest, OtherMembersAreIgnored) {
    EXPECT_EQ(outcomeOf(R"({"minimum": {"current": 3}, "current": "1.5.0", "x": [1]})"),
              u"version 1.5.0"_s);
}

TEST(UpdateManifest, EmptyVersionIsAVersion) {
    EXPECT_EQ(outcomeOf(R"({"current": ""})"), u"version "_s);
}

TEST(UpdateManifest, CurrentOfEveryOtherTypeIsMalformed) {
    for (const char* value : {"2", "2.5", "true", "null", "[]", R"(["1.0"])", "{}"}) {
        const QByteArray body = QByteArray(R"({"current": )") + value + '}';
        EXPECT_EQ(outcomeOf(body), u"Malformed manifest"_s) << value;
    }
}

TEST(UpdateManifest, ObjectWithoutCurrentIsMalformed) {
    EXPECT_EQ(outcomeOf("{}"), u"Malformed manifest"_s);
    EXPECT_EQ(outcomeOf(R"({"Current": "1.0"})"), u"Malformed manifest"_s);
}

TEST(UpdateManifest, WhatIsNoJsonGivesTheParsersText) {
    for (const char* body : {"", "   ", "<html>", "{", R"({"current": "1.0")", "\"1.0\"",
                             R"({"current": "1.0"} more)"}) {
        const QString outcome = outcomeOf(body);
        EXPECT_FALSE(outcome.isEmpty()) << body;
        EXPECT_FALSE(outcome.startsWith(u"version"_s)) << body;
        EXPECT_NE(outcome, u"Malformed manifest"_s) << body;
    }
}

TEST(UpdateManifest, ByteOrderMarkIsSkipped) {
    EXPECT_EQ(outcomeOf("\xef\xbb\xbf{\"current\": \"1.0\"}"), u"version 1.0"_s);
}

} // namespace tarnwick
