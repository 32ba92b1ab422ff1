#include "data/Dates.h"

#include <gtest/gtest.h>

namespace {

struct Reading {
    const char *name;
    QString text;
    QString format;
    std::optional<QDate> day;
};

class ReadDay : public testing::TestWithParam<Reading> {};

TEST_P(ReadDay, FollowsTheSystemsOrderFirst)
{
    EXPECT_EQ(readDay(GetParam().text, GetParam().format), GetParam().day);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ReadDay,
    testing::Values(
        Reading{"Stored", u"1/12/2026"_qs, u"dd/MM/yyyy"_qs, QDate(2026, 12, 1)},
        Reading{"OtherSign", u" 01.12.2026 "_qs, u"dd/MM/yyyy"_qs, QDate(2026, 12, 1)},
        Reading{"MonthFirst", u"1/12/2026"_qs, u"MM/dd/yyyy"_qs, QDate(2026, 1, 12)},
        Reading{"OrderMakesNoDate", u"31/12/2099"_qs, u"MM/dd/yyyy"_qs, QDate(2099, 12, 31)},
        Reading{"OnlyMonthFirstFits", u"12/31/2026"_qs, u"dd.MM.yyyy"_qs, QDate(2026, 12, 31)},
        Reading{"YearFirst", u"2026-12-01"_qs, u"yyyy-MM-dd"_qs, QDate(2026, 12, 1)},
        Reading{"ShortYear", u"1/12/26"_qs, u"dd/MM/yyyy"_qs, QDate(2026, 12, 1)},
        Reading{"LastCentury", u"1/12/30"_qs, u"dd/MM/yyyy"_qs, QDate(1930, 12, 1)},
        Reading{"UnknownFormat", u"1/12/2026"_qs, u"?"_qs, QDate(2026, 12, 1)},
        Reading{"LetterBehind", u"1/12/2026x"_qs, u"dd/MM/yyyy"_qs, std::nullopt},
        Reading{"HugeNumbers", u"1/12/99999999999999"_qs, u"dd/MM/yyyy"_qs, std::nullopt},
        Reading{"Empty", {}, u"dd/MM/yyyy"_qs, std::nullopt}),
    [](const auto &reading) { return reading.param.name; });

TEST(Dates, FormsOfTheTables)
{
    const QDate day(2026, 2, 3);
    EXPECT_EQ(dayText(day), u"3/2/2026");
    EXPECT_EQ(commandDate(day), u"260203");
    EXPECT_EQ(storedDate(day), u"2026-02-03");
    EXPECT_EQ(dayNumber(QDate(1900, 1, 1)), 2);
    EXPECT_EQ(dayNumber(day), 46056);
    EXPECT_EQ(readStoredDay(dayText(day)), day);
}

} // namespace
