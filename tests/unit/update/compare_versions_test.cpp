// SPDX-License-Identifier: MIT
#include "update/update_manifest.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <regex>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

int compared(const QString& a, const QString& b) {
    return compareVersions(a, b);
}

} // namespace

TEST(CompareVersions, NumbersAreComparedPositionByPosition) {
    EXPECT_EQ(compared(u"1.2.3"_s, u"1.2.3"_s), 0);
    EXPECT_EQ(compared(u"1.2"_s, u"1.2.0"_s), 0);
    EXPECT_EQ(compared(u"1.2.3"_s, u"1.10"_s), -1);
    EXPECT_EQ(compared(u"2.0"_s, u"1.99.99"_s), 1);
    EXPECT_EQ(compared(u"0.0.0"_s, u"0.0.1"_s), -1);
}

TEST(CompareVersions, TextsAreComparedAsTexts) {
    EXPECT_EQ(compared(u"1.2"_s, u"1.2.beta"_s), -1);
    EXPECT_EQ(compared(u"1.2.beta"_s, u"1.2.alpha"_s), 1);
    EXPECT_EQ(compared(u"1.2a"_s, u"1.10"_s), 1);
}

TEST(CompareVersions, EmptyComponentsDoNotCount) {
    EXPECT_EQ(compared(u"1..2"_s, u"1.2"_s), 0);
    EXPECT_EQ(compared(u""_s, u"0"_s), 0);
    EXPECT_EQ(compared(u""_s, u""_s), 0);
    EXPECT_EQ(compared(u".1.2."_s, u"1.2"_s), 0);
}

TEST(CompareVersions, SignsAreNumbers) {
    EXPECT_EQ(compared(u"+1"_s, u"1"_s), 0);
    EXPECT_EQ(compared(u"-1"_s, u"0"_s), -1);
    EXPECT_EQ(compared(u"-0"_s, u"0"_s), 0);
    EXPECT_EQ(compared(u"1.-1"_s, u"1"_s), -1);
    EXPECT_EQ(compared(u"007"_s, u"7"_s), 0);
    // A sign alone is text: it sorts before the digits.
    EXPECT_EQ(compared(u"+"_s, u"0"_s), -1);
    EXPECT_EQ(compared(u"+-1"_s, u"+"_s), 1);
}

TEST(CompareVersions, BlanksAndOtherDigitsAreTexts) {
    EXPECT_EQ(compared(u" 9"_s, u"1"_s), -1);
    EXPECT_EQ(compared(u"10 "_s, u"9"_s), -1);
    EXPECT_EQ(compared(u"\u0661"_s, u"9"_s), 1); // an Arabic digit
    EXPECT_EQ(compared(u"1,000"_s, u"9"_s), -1);
    EXPECT_EQ(compared(u"0x10"_s, u"9"_s), -1);
}

TEST(CompareVersions, OverflowIsAText) {
    EXPECT_EQ(compared(u"9223372036854775807"_s, u"9223372036854775806"_s), 1);
    EXPECT_EQ(compared(u"9223372036854775808"_s, u"10"_s), 1);
    EXPECT_EQ(compared(u"10000000000000000000"_s, u"9"_s), -1);
    EXPECT_EQ(compared(u"-9223372036854775808"_s, u"-9223372036854775807"_s), -1);
    EXPECT_EQ(compared(u"-9223372036854775809"_s, u"-10"_s), 1);
}

TEST(CompareVersions, TextsSortByCodePointsNotByUtf16Units) {
    EXPECT_EQ(compared(u"\uffee"_s, u"\U0001f600"_s), -1);
    EXPECT_EQ(compared(u"1.\U0001f600"_s, u"1.\uffee"_s), 1);
}

// A second implementation of the rules, over UTF-32 texts, one component at a time.
namespace reference {

using Text = std::u32string;

std::vector<Text> componentsOf(const QString& version) {
    std::vector<Text> components;
    Text component;
    for (const char32_t c : (version + u'.').toStdU32String()) {
        if (c != U'.')
            component += c;
        else if (!component.empty())
            components.push_back(std::exchange(component, {}));
    }
    return components;
}

std::optional<long long> numberOf(const Text& text) {
    static const std::regex number("[+-]?[0-9]+");
    const std::string utf8 = QString::fromStdU32String(text).toStdString();
    if (!std::regex_match(utf8, number))
        return std::nullopt;
    try {
        return std::stoll(utf8);
    } catch (const std::out_of_range&) {
        return std::nullopt;
    }
}

int compare(const QString& versionA, const QString& versionB) {
    const auto a = componentsOf(versionA);
    const auto b = componentsOf(versionB);
    for (size_t i = 0; i < a.size() || i < b.size(); ++i) {
        const auto numberA = i < a.size() ? numberOf(a[i]) : std::optional(0LL);
        const auto numberB = i < b.size() ? numberOf(b[i]) : std::optional(0LL);
        const Text textA = i < a.size() ? a[i] : Text();
        const Text textB = i < b.size() ? b[i] : Text();
        const bool asNumbers = numberA.has_value() && numberB.has_value();
        if (asNumbers ? *numberA < *numberB : textA < textB)
            return -1;
        if (asNumbers ? *numberA > *numberB : textA > textB)
            return 1;
    }
    return 0;
}

} // namespace reference

namespace {

/// Random versions from pieces that the rules treat differently.
class RandomVersions {
public:
    explicit RandomVersions(unsigned seed) : random_(seed) {}

    size_t below(size_t bound) { return size_t(random_() % bound); }

    QString next() {
        static const QStringList pieces = {u"."_s,
                                           u"."_s,
                                           u"."_s,
                                           u"0"_s,
                                           u"1"_s,
                                           u"2"_s,
                                           u"10"_s,
                                           u"9"_s,
                                           u"beta"_s,
                                           u"a"_s,
                                           u"+"_s,
                                           u"-"_s,
                                           u" "_s,
                                           u"\u0661"_s,
                                           u"\uffee"_s,
                                           u"\U0001f600"_s,
                                           u"9223372036854775807"_s,
                                           u"9223372036854775808"_s};
        QString text;
        for (size_t length = below(7); length > 0; --length)
            text += pieces[qsizetype(below(size_t(pieces.size())))];
        return text;
    }

private:
    std::mt19937 random_;
};

} // namespace

TEST(CompareVersions, AgreesWithAReferenceAndIsAntisymmetricOverRandomPairs) {
    const unsigned seed = std::random_device()();
    RecordProperty("seed", std::to_string(seed));
    std::cout << "seed " << seed << '\n';
    RandomVersions versions(seed);
    std::array<int, 3> outcomes{};
    for (int i = 0; i < 100'000; ++i) {
        const QString a = versions.next();
        const QString b = versions.below(4) == 0 ? a + versions.next() : versions.next();
        const int order = compared(a, b);
        ASSERT_EQ(order, reference::compare(a, b))
            << "seed " << seed << ": " << a.toStdString() << " and " << b.toStdString();
        ASSERT_EQ(order, -compared(b, a))
            << "seed " << seed << ": " << a.toStdString() << " and " << b.toStdString();
        ++outcomes[size_t(order + 1)];
    }
    for (const int count : outcomes) // all outcomes were tried
        EXPECT_GT(count, 1000);
}

} // namespace tarnwick
