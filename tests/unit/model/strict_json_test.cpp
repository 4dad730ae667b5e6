// SPDX-License-Identifier: MIT
#include "model/strict_json.h"
#include "support/printing.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

class LenientDocument : public testing::TestWithParam<const char*> {};

TEST_P(LenientDocument, IsFoundThoughQtAcceptsIt) {
    const QByteArray json = GetParam();
    ASSERT_FALSE(QJsonDocument::fromJson(json).isNull()) << "Qt refuses it by itself";
    EXPECT_FALSE(isStrictJson(json));
}

INSTANTIATE_TEST_SUITE_P(All, LenientDocument,
                         testing::Values("{\"a\":\"x\ny\"}", "{\"a\":\"x\ty\"}", "{\"a\":\"\x01\"}",
                                         "{\"a\":\"\\q\"}", "{\"a\\x\":1}", "{\"a\":1.}",
                                         "{\"a\":.5}", "[1., 2]"));

class ProperDocument : public testing::TestWithParam<const char*> {};

TEST_P(ProperDocument, IsStrict) {
    const QByteArray json = GetParam();
    ASSERT_FALSE(QJsonDocument::fromJson(json).isNull());
    EXPECT_TRUE(isStrictJson(json));
}

INSTANTIATE_TEST_SUITE_P(
    All, ProperDocument,
    testing::Values("{}", "[]", "{\"a\":1.5}", "{\"a\":-0.25e-3}", "{\"a\":\".5 1. \\\\\"}",
                    "{\"a\":\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00e9\"}", "{ \"a\" :\n\t[ true ] }\n",
                    "{\"\":\"\\\\\",\"b\":[\"\\\"\",\".\"]}", "{\"a\":\"\xF0\x9F\x98\x80\x7F\"}"));

} // namespace

} // namespace tarnwick
