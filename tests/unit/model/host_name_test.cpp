// SPDX-License-Identifier: MIT
#include "model/host_name.h"
#include "support/printing.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <random>

namespace tarnwick {

using namespace Qt::StringLiterals;

TEST(SanitizeHostname, ApostrophesAndBlanksBecomeHyphens) {
    EXPECT_EQ(sanitizeHostname(u"John's MacBook Pro"_s), u"john-s-macbook-pro"_s);
}

TEST(SanitizeHostname, RunsBecomeOneHyphen) {
    EXPECT_EQ(sanitizeHostname(u"My  Mac"_s), u"my-mac"_s);
    EXPECT_EQ(sanitizeHostname(u"--Dev--Box--"_s), u"dev-box"_s);
    EXPECT_EQ(sanitizeHostname(u"a - _ b"_s), u"a-b"_s);
}

TEST(SanitizeHostname, NothingLeftBecomesTheFallback) {
    for (const QString& name : {u""_s, u"---"_s, u"???"_s, u"   "_s, u"日本語"_s, u"\U0001f600"_s})
        EXPECT_EQ(sanitizeHostname(name), u"tarnwick-device"_s);
}

TEST(SanitizeHostname, AccentedLettersBecomeHyphens) {
    EXPECT_EQ(sanitizeHostname(u"Åsa's Mac"_s), u"sa-s-mac"_s);
    EXPECT_EQ(sanitizeHostname(u"Zoë2"_s), u"zo-2"_s);
    EXPECT_EQ(sanitizeHostname(u"a\U0001f600b"_s), u"a-b"_s);
}

TEST(SanitizeHostname, LowerCasingComesFirst) {
    EXPECT_EQ(sanitizeHostname(u"\u212Aelvin"_s), u"kelvin"_s); // the sign, not the letter
    EXPECT_EQ(sanitizeHostname(u"\u0130x"_s), u"i-x"_s);        // an i and a dot above it
}

TEST(SanitizeHostname, SeventyLettersYieldTheFirst63) {
    EXPECT_EQ(sanitizeHostname(QString(70, u'x')), QString(63, u'x'));
}

TEST(SanitizeHostname, HyphenAtTheCutIsLost) {
    EXPECT_EQ(sanitizeHostname(QString(62, u'x') + u"-yyyyyyy"_s), QString(62, u'x'));
    EXPECT_EQ(sanitizeHostname(QString(63, u'x') + u"-yyyyyyy"_s), QString(63, u'x'));
}

TEST(SanitizeHostname, DevPrefixIsKept) {
    EXPECT_EQ(sanitizeHostname(u"dev-laptop"_s), u"dev-laptop"_s);
    EXPECT_EQ(sanitizeHostname(u"Dev-Laptop 2"_s), u"dev-laptop-2"_s);
}

// The same in the steps in which one would say it, over random names.
TEST(SanitizeHostname, AgreesWithTheStepsOneByOne) {
    const auto inSteps = [](const QString& name) {
        QString steps;
        for (const char32_t c : name.toLower().toStdU32String()) {
            const QString scalar = QString::fromUcs4(&c, 1);
            static const QRegularExpression allowed(u"[a-z0-9-]"_s);
            steps += allowed.match(scalar).hasMatch() ? scalar : u"-"_s;
        }
        while (steps.contains(u"--"_s))
            steps.replace(u"--"_s, u"-"_s);
        while (steps.startsWith(u'-'))
            steps.remove(0, 1);
        while (steps.endsWith(u'-'))
            steps.chop(1);
        if (steps.size() > 63) {
            steps = steps.first(63);
            while (steps.endsWith(u'-'))
                steps.chop(1);
        }
        return steps.isEmpty() ? u"tarnwick-device"_s : steps;
    };
    const unsigned seed = std::random_device()();
    std::mt19937 random(seed);
    const QStringList pieces = {
        u"a"_s, u"Z"_s,          u"9"_s,      u"-"_s, u"--"_s,           u" "_s,
        u"é"_s, u"\U0001f600"_s, u"\u212A"_s, u"İ"_s, u"longer-piece"_s, u"."_s};
    for (int i = 0; i < 20'000; ++i) {
        QString name;
        for (auto length = random() % 40; length > 0; --length)
            name += pieces[qsizetype(random() % size_t(pieces.size()))];
        ASSERT_EQ(sanitizeHostname(name), inSteps(name))
            << "seed " << seed << ", " << qPrintable(name);
    }
}

} // namespace tarnwick
