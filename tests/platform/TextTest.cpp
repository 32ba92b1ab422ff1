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

TEST(Text, CutsEndOrFailWhereTheyMust)
{
    using Cut = std::tuple<int, int, std::optional<QString>>;
    for (const auto &[start, length, expected] :
         {Cut{1, 8, u"91234567"_qs}, Cut{4, 2, u"34"_qs}, Cut{7, 99, u"67"_qs}, Cut{20, 3, u""_qs},
          Cut{4, 0, u""_qs}, Cut{4, -1, {}}, Cut{0, 3, {}}, Cut{-2, 17, {}}}) {
        EXPECT_EQ(outcome([=] { return mid(u"91234567"_qs, start, length); }), expected)
            << start << ", " << length;
    }
    EXPECT_EQ(outcome([] { return left(u"abc"_qs, 2); }), u"ab"_qs);
    EXPECT_EQ(outcome([] { return left(u"abc"_qs, -1); }), std::nullopt);
    EXPECT_EQ(outcome([] { return mid(u"abc"_qs, 3); }), u"c"_qs);
    EXPECT_EQ(outcome([] { return mid(u"abc"_qs, 0); }), std::nullopt);
}

TEST(Text, SearchCountsFromOne)
{
    using Search = std::tuple<int, QString, QString, std::optional<int>>;
    for (const auto &[start, text, needle, place] :
         {Search{1, u"+47"_qs, u"+"_qs, 1}, Search{1, u"er LAGT til"_qs, u"lagt"_qs, 4},
          Search{1, u"DØR ÅPNET"_qs, u"åpnet"_qs, 5}, Search{3, u"a,b"_qs, u"b"_qs, 3},
          Search{2, u"a,b"_qs, u"a"_qs, 0}, Search{9, u"a,b"_qs, u"a"_qs, 0},
          Search{2, u"a,b"_qs, u""_qs, 2}, Search{0, u"a,b"_qs, u"a"_qs, {}}}) {
        EXPECT_EQ(
            outcome([&, from = start, in = text, what = needle] { return inStr(from, in, what); }),
            place)
            << start << needle.toStdString();
    }
}

TEST(Text, NumbersAreReadOrRefused)
{
    struct Number {
        QString text = {};
        std::optional<double> number = {};
        std::optional<int> byte = {};
    };
    for (const Number &each :
         {Number{u"23"_qs, 23, 23}, Number{u" 7 "_qs, 7, 7}, Number{u"-3"_qs, -3, {}},
          Number{u"255"_qs, 255, 255}, Number{u"256"_qs, 256, {}}, Number{}, Number{u"12a"_qs},
          Number{u"inf"_qs}, Number{u"nan"_qs}, Number{QString(300, u'9'), 1e300, {}}}) {
        EXPECT_EQ(outcome([&] { return toNumber(each.text); }), each.number);
        EXPECT_EQ(outcome([&] { return static_cast<int>(toByte(each.text)); }), each.byte);
    }
}

// The published table of the set, its five codes without a character left out.
TEST(Text, EveryCodeIsTheCharacterOfWindows1252)
{
    QString upperHalf = u"€.‚ƒ„…†‡ˆ‰Š‹Œ.Ž..‘’“”•–—˜™š›œ.žŸ"_qs;
    for (int code = 0xA0; code < 256; ++code) {
        upperHalf += QChar(code); // as in Latin-1
    }
    for (int code = 0; code < 256; ++code) {
        const QChar expected = code < 0x80 ? QChar(code) : upperHalf[code - 0x80];
        const QChar shown = windows1252Character(code);
        EXPECT_EQ(shown, code > 0x80 && expected == u'.' ? QChar(code) : expected) << code;
        EXPECT_EQ(windows1252Code(shown), code);
    }
    EXPECT_EQ(windows1252Code(u'\u0085'), -1) << "a control of another set";
}

TEST(Text, ForeignCharactersBecomeOneQuestionMarkEach)
{
    EXPECT_EQ(toWindows1252(u"Øst € Ж 😀!"_qs), u"Øst € ? ?!"_qs);
    EXPECT_EQ(toWindows1252(QString(QChar(0xD83D))), u"?"_qs) << "half a pair";
}

} // namespace
