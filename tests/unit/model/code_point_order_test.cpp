// SPDX-License-Identifier: MIT
#include "model/code_point_order.h"
#include "support/printing.h"

#include <QString>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

TEST(CodePointOrder, EqualTextsCompareEqual) {
    EXPECT_EQ(compareCodePoints(u"alpha", u"alpha"), 0);
    EXPECT_EQ(compareCodePoints(u"", u""), 0);
}

TEST(CodePointOrder, PrefixSortsFirst) {
    EXPECT_LT(compareCodePoints(u"", u"a"), 0);
    EXPECT_LT(compareCodePoints(u"al", u"alpha"), 0);
    EXPECT_GT(compareCodePoints(u"alpha", u"al"), 0);
}

TEST(CodePointOrder, UpperCaseSortsBeforeLowerCase) {
    EXPECT_LT(compareCodePoints(u"Zed", u"alpha"), 0);
}

TEST(CodePointOrder, EmojiSortsAfterFullWidthTilde) {
    const QString tilde = QString::fromUcs4(U"\uFF5E");
    const QString emoji = QString::fromUcs4(U"\U0001F600");
    ASSERT_LT(emoji.compare(tilde), 0) << "by UTF-16 units the order is the other way round";
    EXPECT_LT(compareCodePoints(tilde, emoji), 0);
    EXPECT_GT(compareCodePoints(emoji, tilde), 0);
}

} // namespace

} // namespace tarnwick
