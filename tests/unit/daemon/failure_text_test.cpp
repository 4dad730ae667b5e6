// SPDX-License-Identifier: MIT
#include "daemon/failure_text.h"

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

TEST(FailureText, IsOneLineWithoutControlCharacters) {
    EXPECT_EQ(failureText(u"\n error:\tno\x1b[1m\r\nprofile\0x \n"_s),
              u"error: no [1m profile x"_s);
    EXPECT_EQ(failureText({}), QString());
}

TEST(FailureText, HasNoMarksThatReorderOrHideWhatStandsBesideThem) {
    EXPECT_EQ(failureText(u"error: \u202eevil\u202c \u2066a\u2069\u200b\u200f\ufeffb\u2028c"_s),
              u"error: evil ab c"_s);
    EXPECT_EQ(failureText(u"error: \U0001F469\u200D\U0001F4BB"_s),
              u"error: \U0001F469\u200D\U0001F4BB"_s)
        << "but emoji stay joined";
    EXPECT_EQ(failureText(QString(1000, QChar(0x202e)) + u"error: late"_s), u"error: late"_s)
        << "and what is left out takes no room";
}

TEST(FailureText, HidesASecretThatTheToolHasSprinkledWithMarks) {
    EXPECT_EQ(failureText(u"error: tw\u200bkey\u202e-1\u202c"_s, u"twkey-1"_s), u"error: •••"_s);
    EXPECT_EQ(failureText(u"error: twkey\u200b-1"_s, u"twkey\u200b-1"_s), u"error: •••"_s);
}

TEST(FailureText, IsCutAtASensibleLength) {
    EXPECT_EQ(failureText(QString(300, u'x')), QString(300, u'x'));
    EXPECT_EQ(failureText(QString(10'000, u'x')), QString(300, u'x') + u'…');
    const QString smiles = QString::fromUcs4(U"\U0001F600").repeated(200);
    EXPECT_EQ(failureText(u"x"_s + smiles), u"x"_s + smiles.left(298) + u'…');
    EXPECT_EQ(failureText(smiles), smiles.left(300) + u'…');
}

TEST(FailureText, DoesNotRepeatTheSecret) {
    EXPECT_EQ(failureText(u"error: key twkey-1 is refused: twkey-1"_s, u"twkey-1\n"_s),
              u"error: key ••• is refused: •••"_s);
    EXPECT_EQ(failureText(u"error: no key"_s, u" "_s), u"error: no key"_s);
    const QString longKey(5000, u'k');
    EXPECT_EQ(failureText(u"error: "_s + longKey, longKey), u"error: •••"_s);
}

} // namespace tarnwick
