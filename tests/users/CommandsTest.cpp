#include "users/Commands.h"
#include "platform/RuntimeFailure.h"
#include "users/Balance.h"

#include <gtest/gtest.h>

namespace {

const QString kUser = QStringLiteral("+4791234567");

struct RegisterCase {
    const char *command;
    QString number, saldo;
    QDate from{2026, 12, 1}, to{2026, 12, 3};
    QString fraTid = u"00"_qs, tilTid = u"24"_qs;

    QString build() const
    {
        return registerCommand({number, {}, {}, {}, {}, {}, from, to, fraTid, tilTid, saldo},
                               u"47"_qs);
    }
};

TEST(RegisterCommand, IsBuiltFromTheEntry)
{
    for (const RegisterCase &test : {
             RegisterCase{"I 91234567>27010508<27020516", kUser, u"0"_qs, QDate(2027, 1, 5),
                          QDate(2027, 2, 5), u"08"_qs, u"16"_qs},
             // A foreign number is told by the small letter alone.
             {"i 701234567>26120100<26120324", u"+46701234567"_qs, u" 0.0 "_qs},
             {"I 91234567*-3", kUser, u"-3"_qs},
             {"I 91234567*1", kUser, u"1"_qs, QDate(), QDate(), {}, {}},
             {"I 912345678*5", u"+479123456789012"_qs, u"5"_qs}, // the tenth digit is lost
             {"i 791234567*5", u"004791234567"_qs, u"5"_qs},     // two zeros are no plus
             {"I 4712345*5", u"12+4712345"_qs, u"5"_qs},
             {"I *5", u"+47"_qs, u"5"_qs},
             {"I 91234567>2612017:30<261203",
              kUser,
              u"0"_qs,
              QDate(2026, 12, 1),
              QDate(2026, 12, 3),
              u"7:30"_qs,
              {}},
         }) {
        EXPECT_EQ(test.build().toStdString(), test.command);
    }
    EXPECT_THROW((RegisterCase{"", kUser, u"mye"_qs}.build()), RuntimeFailure);
    EXPECT_THROW((RegisterCase{"", kUser, u"0"_qs, QDate(), QDate()}.build()), RuntimeFailure);
}

TEST(DeleteCommand, NamesAllDigitsWhereRegisteringNamesNine)
{
    EXPECT_EQ(deleteCommand(u"+46701234567"_qs, u"47"_qs), u"u 701234567"_qs);
    EXPECT_EQ(deleteCommand(u"+479123456789012"_qs, u"47"_qs), u"U 9123456789012"_qs);
    EXPECT_EQ(bareRegisterCommand(u"+46701234567"_qs, u"46"_qs), u"I 701234567"_qs);
}

TEST(Balance, StepsWithoutAnUpperLimitAndNotBelowZero)
{
    EXPECT_EQ(oneMore(u"999999"_qs), u"1000000"_qs);
    EXPECT_EQ(oneLess(u"1"_qs), u"0"_qs);
    EXPECT_EQ(oneLess(u"00"_qs), u"00"_qs);
    EXPECT_EQ(oneLess(u"-2"_qs), u"-2"_qs);
    EXPECT_FALSE(showsBalance(u"-1"_qs)); // sent as a balance all the same
    EXPECT_THROW(showsBalance(QString()), RuntimeFailure);
}

} // namespace
