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

class TextCut : public testing::TestWithParam<Cut> {};

TEST_P(TextCut, EndsOrFailsWhereItMust)
{
    const Cut &cut = GetParam();
    EXPECT_EQ(outcome([&] { return mid(u"91234567"_qs, cut.start, cut.length); }), cut.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Mid, TextCut,
    testing::Values(Cut{"wholeText", 1, 8, u"91234567"_qs}, Cut{"inside", 4, 2, u"34"_qs},
                    Cut{"longerThanTheText", 7, 99, u"67"_qs}, Cut{"behindTheEnd", 20, 3, u""_qs},
                    Cut{"noLength", 4, 0, u""_qs}, Cut{"negativeLength", 4, -1, std::nullopt},
                    Cut{"startOfNothingFound", 0, 3, std::nullopt},
                    Cut{"negativeStart", -2, 17, std::nullopt}),
    [](const auto &test) { return test.param.name; });

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

class TextSearch : public testing::TestWithParam<Search> {};

TEST_P(TextSearch, CountsFromOne)
{
    const Search &search = GetParam();
    EXPECT_EQ(outcome([&] { return inStr(search.start, search.text, search.needle); }),
              search.expected);
}

INSTANTIATE_TEST_SUITE_P(InStr, TextSearch,
                         testing::Values(Search{"firstCharacter", 1, u"+47"_qs, u"+"_qs, 1},
                                         Search{"otherCase", 1, u"er LAGT til"_qs, u"lagt"_qs, 4},
                                         Search{"nordicCase", 1, u"DØR ÅPNET"_qs, u"åpnet"_qs, 5},
                                         Search{"atTheStart", 3, u"a,b"_qs, u"b"_qs, 3},
                                         Search{"beforeTheStart", 2, u"a,b"_qs, u"a"_qs, 0},
                                         Search{"startBehindTheEnd", 9, u"a,b"_qs, u"a"_qs, 0},
                                         Search{"emptyNeedle", 2, u"a,b"_qs, u""_qs, 2},
                                         Search{"startBelowOne", 0, u"a,b"_qs, u"a"_qs,
                                                std::nullopt}),
                         [](const auto &test) { return test.param.name; });

struct Number {
    const char *name;
    QString text;
    std::optional<double> number;
    std::optional<int> byte;
};

class TextNumber : public testing::TestWithParam<Number> {};

TEST_P(TextNumber, IsReadOrRefused)
{
    const Number &number = GetParam();
    EXPECT_EQ(outcome([&] { return toNumber(number.text); }), number.number);
    EXPECT_EQ(outcome([&] { return static_cast<int>(toByte(number.text)); }), number.byte);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, TextNumber,
    testing::Values(Number{"plain", u"23"_qs, 23.0, 23}, Number{"blanks", u" 7 "_qs, 7.0, 7},
                    Number{"negative", u"-3"_qs, -3.0, std::nullopt},
                    Number{"largestByte", u"255"_qs, 255.0, 255},
                    Number{"aboveAByte", u"256"_qs, 256.0, std::nullopt},
                    Number{"empty", u""_qs, std::nullopt, std::nullopt},
                    Number{"letters", u"12a"_qs, std::nullopt, std::nullopt},
                    Number{"infinite", u"inf"_qs, std::nullopt, std::nullopt},
                    Number{"notANumber", u"nan"_qs, std::nullopt, std::nullopt},
                    Number{"threeHundredDigits", QString(300, u'9'), 1e300, std::nullopt}),
    [](const auto &test) { return test.param.name; });

TEST(Text, ByteRefusesWhatOverflows)
{
    EXPECT_EQ(outcome([] { return byteOf(255); }), quint8(255));
    EXPECT_EQ(outcome([] { return byteOf(256); }), std::nullopt);
    EXPECT_EQ(outcome([] { return byteOf(-1); }), std::nullopt);
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

TEST(Text, LineBytesGoBothWaysUnchanged)
{
    QByteArray all;
    for (int code = 0; code < 256; ++code) {
        all.append(static_cast<char>(code));
    }
    EXPECT_EQ(toLineBytes(fromLineBytes(all)), all);
    EXPECT_EQ(toLineBytes(u"a€"_qs), QByteArray("a?"));
}

} // namespace
