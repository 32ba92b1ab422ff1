#include "platform/Text.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

/// What a cut gives, or nothing when it fails.
template <typename Cut> auto outcome(const Cut &cut) -> std::optional<decltype(cut())>
{
    try {
        return cut();
    } catch (const RuntimeFailure &) {
        return std::nullopt;
    }
}

struct Cut {
    const char *name;
    int start;
    int length;
    std::optional<QString> expected;
};

const Cut kMid[] = {{"wholeText", 1, 8, u"91234567"_qs},
                    {"inside", 4, 2, u"34"_qs},
                    {"longerThanTheText", 7, 99, u"67"_qs},
                    {"behindTheEnd", 20, 3, u""_qs},
                    {"noLength", 4, 0, u""_qs},
                    {"negativeLength", 4, -1, std::nullopt},
                    {"startOfNothingFound", 0, 3, std::nullopt},
                    {"negativeStart", -2, 17, std::nullopt}};

TEST(TextCut, EndsOrFailsWhereItMust)
{
    for (const Cut &cut : kMid) {
        SCOPED_TRACE(cut.name);
        EXPECT_EQ(outcome([&] { return mid(u"91234567"_qs, cut.start, cut.length); }),
                  cut.expected);
    }
}

TEST(Text, LeftAndOpenCutsFailToo)
{
    EXPECT_EQ(outcome([] { return left(u"abc"_qs, 2); }), u"ab"_qs);
    EXPECT_EQ(outcome([] { return left(u"abc"_qs, -1); }), std::nullopt);
    EXPECT_EQ(outcome([] { return mid(u"abc"_qs, 3); }), u"c"_qs);
    EXPECT_EQ(outcome([] { return mid(u"abc"_qs, 0); }), std::nullopt);
}

struct Search {
    const char *name;
    int start;
    QString text;
    QString needle;
    std::optional<int> expected;
};

const Search kInStr[] = {{"firstCharacter", 1, u"+47"_qs, u"+"_qs, 1},
                         {"otherCase", 1, u"er LAGT til"_qs, u"lagt"_qs, 4},
                         {"nordicCase", 1, u"DØR ÅPNET"_qs, u"åpnet"_qs, 5},
                         {"atTheStart", 3, u"a,b"_qs, u"b"_qs, 3},
                         {"beforeTheStart", 2, u"a,b"_qs, u"a"_qs, 0},
                         {"startBehindTheEnd", 9, u"a,b"_qs, u"a"_qs, 0},
                         {"emptyNeedle", 2, u"a,b"_qs, u""_qs, 2},
                         {"startBelowOne", 0, u"a,b"_qs, u"a"_qs, std::nullopt}};

TEST(TextSearch, CountsFromOne)
{
    for (const Search &search : kInStr) {
        SCOPED_TRACE(search.name);
        EXPECT_EQ(outcome([&] { return inStr(search.start, search.text, search.needle); }),
                  search.expected);
    }
}

struct Number {
    const char *name;
    QString text;
    std::optional<double> number;
    std::optional<int> byte;
};

const Number kNumbers[] = {{"plain", u"23"_qs, 23.0, 23},
                           {"blanks", u" 7 "_qs, 7.0, 7},
                           {"negative", u"-3"_qs, -3.0, std::nullopt},
                           {"largestByte", u"255"_qs, 255.0, 255},
                           {"aboveAByte", u"256"_qs, 256.0, std::nullopt},
                           {"empty", u""_qs, std::nullopt, std::nullopt},
                           {"letters", u"12a"_qs, std::nullopt, std::nullopt},
                           {"infinite", u"inf"_qs, std::nullopt, std::nullopt},
                           {"notANumber", u"nan"_qs, std::nullopt, std::nullopt},
                           {"threeHundredDigits", QString(300, u'9'), 1e300, std::nullopt}};

TEST(TextNumber, IsReadOrRefused)
{
    for (const Number &number : kNumbers) {
        SCOPED_TRACE(number.name);
        EXPECT_EQ(outcome([&] { return toNumber(number.text); }), number.number);
        EXPECT_EQ(outcome([&] { return static_cast<int>(toByte(number.text)); }), number.byte);
    }
}

TEST(Text, EveryCodeOfWindows1252ComesBack)
{
    for (int code = 0; code < 256; ++code) {
        EXPECT_EQ(windows1252Code(windows1252Character(code)), code);
    }
    EXPECT_EQ(windows1252Character(0x80), QChar(u'€'));
    EXPECT_EQ(windows1252Code(u'\u0085'), -1) << "a control of another set";
}

TEST(Text, ForeignCharactersBecomeOneQuestionMarkEach)
{
    EXPECT_EQ(toWindows1252(u"Øst € Ж 😀!"_qs), u"Øst € ? ?!"_qs);
    EXPECT_EQ(toWindows1252(QString(QChar(0xD83D))), u"?"_qs) << "half a pair";
}

} // namespace
