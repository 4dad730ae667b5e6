// SPDX-License-Identifier: MIT
#include "model/display_text.h"

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

TEST(DisplayText, LineBreaksAndControlCharactersBecomeBlanks) {
    EXPECT_EQ(singleLineText(u"a\nb\tc\u0007d\u2028e"_s), "a b c d e"_L1);
    EXPECT_EQ(multiLineText(u"a\r\nb\tc"_s), "a\nb c"_L1);
}

TEST(DisplayText, MarksThatReorderTheirSurroundingsGo) {
    EXPECT_EQ(singleLineText(u"\u202eabc\u202c\u200f\u2066d"_s), "abcd"_L1);
    EXPECT_EQ(singleLineText(u"\U0001F469\u200D\U0001F4BB"_s), u"\U0001F469\u200D\U0001F4BB"_s)
        << "but emoji stay joined";
}

TEST(DisplayText, IsNeverCutInsideOfACharacter) {
    QString emoji;
    for (int i = 0; i < 400; ++i)
        emoji += u"\U0001F680"_s;
    const QString shown = singleLineText(u'a' + emoji);
    EXPECT_TRUE(shown.isValidUtf16());
    EXPECT_TRUE(shown.endsWith(u'…'));
}

} // namespace tarnwick
