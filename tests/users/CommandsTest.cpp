#include "users/Commands.h"
#include "platform/RuntimeFailure.h"
#include "users/Balance.h"
#include "users/Numbers.h"

#include <gtest/gtest.h>

namespace {

struct RegisterCase {
    const char *name;
    const char *number;
    QDate from, to;
    const char *fraTid;
    const char *tilTid;
    const char *saldo;
    const char *command;
};

const QDate kFirst(2026, 12, 1);
const QDate kThird(2026, 12, 3);

const RegisterCase kRegisterCases[] = {
    {"period", "+4791234567", kFirst, kThird, "00", "24", "0", "I 91234567>26120100<26120324"},
    {"overTheTurnOfTheYear", "+4791234567", QDate(2027, 1, 5), QDate(2027, 2, 5), "08", "16", "0",
     "I 91234567>27010508<27020516"},
    {"foreignNumberIsToldByTheSmallLetterAlone", "+46701234567", kFirst, kThird, "00", "24", "0",
     "i 701234567>26120100<26120324"},
    {"balance", "+4791234567", kFirst, kThird, "00", "24", "25", "I 91234567*25"},
    {"negativeBalanceIsSentAsOne", "+4791234567", kFirst, kThird, "00", "24", "-3",
     "I 91234567*-3"},
    {"balanceNeedsNoDays", "+4791234567", QDate(), QDate(), "", "", "1", "I 91234567*1"},
    {"zeroInOtherWords", "+4791234567", kFirst, kThird, "00", "24", " 0.0 ",
     "I 91234567>26120100<26120324"},
    {"tenthDigitIsLost", "+479123456789012", kFirst, kThird, "00", "24", "5", "I 912345678*5"},
    {"twoZerosAreNoPlus", "004791234567", kFirst, kThird, "00", "24", "5", "i 791234567*5"},
    {"hoursAsTyped", "+4791234567", kFirst, kThird, "7:30", "", "0",
     "I 91234567>2612017:30<261203"},
};

class RegisterCommand : public testing::TestWithParam<RegisterCase> {};

TEST_P(RegisterCommand, IsBuiltFromTheEntry)
{
    const RegisterCase &test = GetParam();
    UserEntry entry;
    entry.number = QString::fromLatin1(test.number);
    entry.from = test.from;
    entry.to = test.to;
    entry.fraTid = QString::fromLatin1(test.fraTid);
    entry.tilTid = QString::fromLatin1(test.tilTid);
    entry.saldo = QString::fromLatin1(test.saldo);
    EXPECT_EQ(registerCommand(entry, u"47"_qs).toStdString(), test.command);
}

INSTANTIATE_TEST_SUITE_P(Entries, RegisterCommand, testing::ValuesIn(kRegisterCases),
                         [](const auto &instance) { return std::string(instance.param.name); });

TEST(RegisterCommand, FailsWithoutABalanceOrADay)
{
    UserEntry entry;
    entry.number = u"+4791234567"_qs;
    entry.saldo = u"mye"_qs;
    EXPECT_THROW(registerCommand(entry, u"47"_qs), RuntimeFailure);
    entry.saldo = u"0"_qs;
    EXPECT_THROW(registerCommand(entry, u"47"_qs), RuntimeFailure);
}

TEST(DeleteCommand, NamesAllDigitsWhereRegisteringNamesNine)
{
    EXPECT_EQ(deleteCommand(u"+4791234567"_qs, u"47"_qs), u"U 91234567"_qs);
    EXPECT_EQ(deleteCommand(u"+46701234567"_qs, u"47"_qs), u"u 701234567"_qs);
    EXPECT_EQ(deleteCommand(u"+479123456789012"_qs, u"47"_qs), u"U 9123456789012"_qs);
    EXPECT_EQ(bareRegisterCommand(u"+46701234567"_qs, u"46"_qs), u"I 701234567"_qs);
}

TEST(Numbers, HomeIsWherePlusAndCodeStandAnywhere)
{
    EXPECT_TRUE(isHomeNumber(u"12+4712345"_qs, u"47"_qs));
    EXPECT_FALSE(isHomeNumber(u"4791234567"_qs, u"47"_qs));
    EXPECT_FALSE(isHomeNumber(QString(), u"47"_qs));
    EXPECT_EQ(shortNumber(u"+47"_qs), QString());
    EXPECT_EQ(numberToEnd(u"+4"_qs), QString());
}

TEST(Balance, StepsWithoutAnUpperLimitAndNotBelowZero)
{
    EXPECT_EQ(oneMore(u"0"_qs), u"1"_qs);
    EXPECT_EQ(oneMore(u"999999"_qs), u"1000000"_qs);
    EXPECT_EQ(oneLess(u"1"_qs), u"0"_qs);
    EXPECT_EQ(oneLess(u"00"_qs), u"00"_qs);
    EXPECT_EQ(oneLess(u"-2"_qs), u"-2"_qs);
    EXPECT_THROW(oneMore(u"x"_qs), RuntimeFailure);
    EXPECT_FALSE(showsBalance(u"-1"_qs)); // sent as a balance all the same
    EXPECT_THROW(showsBalance(QString()), RuntimeFailure);
}

} // namespace
