#include "doors/DoorCommands.h"

#include <gtest/gtest.h>

namespace {

/// As QString prints itself in a failing test: readable.
std::string command(int index, const DoorEntry &entry)
{
    return doorCommand(index, entry).value_or(u"(nothing)"_qs).toStdString();
}

/// Every field holds its own index, so that a command of a wrong field is seen.
DoorEntry numbered()
{
    DoorEntry entry;
    for (std::size_t i = 0; i < entry.KeyTXT.size(); ++i) {
        entry.KeyTXT[i] = u"<%1>"_qs.arg(i);
    }
    entry.hours = {u"07"_qs, u"09"_qs, u"15"_qs, u"17"_qs};
    return entry;
}

} // namespace

TEST(DoorCommands, AreExactlyThese)
{
    const std::map<int, std::string> texts = {
        {1, "AR"},       {4, "A1 <4>"},   {5, "A2 <5>"},   {6, "A3 <6>"},       {7, "A4 <7>"},
        {8, "A5 <8>"},   {9, "A6 <9>"},   {10, "B !<10>"}, {11, "V3"},          {12, "L"},
        {13, "P <13>"},  {14, "K"},       {15, "T1 <15>"}, {16, "T2 <16>"},     {17, "T3 <17>"},
        {18, "T4 <18>"}, {19, "T5 <19>"}, {20, "T6 <20>"}, {21, "A7 07091517"},
    };
    DoorEntry entry = numbered();
    entry.alarmFunction = 3;
    entry.functionMode = 1;
    for (int index = 0; index <= 22; ++index) {
        const auto expected = texts.find(index);
        EXPECT_EQ(command(index, entry), expected == texts.end() ? "(nothing)" : expected->second);
    }
}

TEST(DoorCommands, ReadTheirFieldsAsTheUnitWantsThem)
{
    const struct {
        int index;
        int field;
        const char *text;
        const char *expected;
    } cases[] = {
        {1, 14, "0", "?"},
        {1, 14, "00", "AR"},
        {1, 14, " ", "AR"},
        {1, 14, "", "AR"},
        {1, 14, "1", "AR"},
        {9, 9, "99887766", "A6 99887766"},
        {9, 9, "6", "A6 <0>"},
        {9, 9, "99999999", "A6 <0>"},
        {9, 9, "66", "A6 66"},
        {9, 9, "999999999", "A6 999999999"},
        {9, 9, "", "A6 "},
        {10, 10, "!Hovedport", "B !Hovedport"},
        {10, 10, "Hoved!port", "B !Hoved!port"},
        {10, 10, " !Port", "B ! !Port"},
        {10, 10, "", "B !"},
        {4, 4, "", "A1 "},
        {17, 17, "", "T3 "},
    };
    for (const auto &[index, field, text, expected] : cases) {
        DoorEntry entry = numbered();
        entry.KeyTXT[field] = QString::fromUtf8(text);
        EXPECT_EQ(command(index, entry), expected) << text;
    }
    EXPECT_EQ(command(11, numbered()), "(nothing)");
    EXPECT_EQ(command(12, numbered()), "(nothing)");
}

TEST(DoorCommands, AlarmFunctionIsSentByItsPosition)
{
    EXPECT_EQ(alarmFunctions(), (QStringList{u"ALARM AV"_qs, u"ALARM PÅ"_qs, u"Åpnet ved ALARM"_qs,
                                             u"Stengt ved ALARM"_qs, u"Endebryter A"_qs,
                                             u"Endebryter B"_qs, u"Endebr.A m/rapport"_qs,
                                             u"Endebr.B m/rapport"_qs, u"ALARM Enderbryter"_qs}));
    DoorEntry entry;
    for (entry.alarmFunction = 0; entry.alarmFunction < 9; ++entry.alarmFunction) {
        EXPECT_EQ(command(11, entry), "V" + std::to_string(entry.alarmFunction));
    }
}

TEST(DoorCommands, FunctionModeHasItsOwnCode)
{
    const struct {
        QString entry;
        const char *command; ///< with the period 07-16
        const char *without;
    } modes[] = {
        {u"Normal  (N)"_qs, "N", "N"},
        {u"Lukket  (L)"_qs, "L", "L"},
        {u"Oppe    (O)"_qs, "O", "O"},
        {u"Oppe hverdager"_qs, "O 07-16*5", ""},
        {u"Oppe alle dager"_qs, "O 07-16*7", ""},
        {u"Bistabil hverdager"_qs, "O 07-16*4", ""},
        {u"Bistabil alle dager"_qs, "O 07-16*6", ""},
        {u"Bare i dag"_qs, "O 07-16*1", ""},
        {u"Hverdager int. 2"_qs, "O 07-16*2", ""},
        {u"Alle dager int. 2"_qs, "O 07-16*3", ""},
    };
    ASSERT_EQ(functionModes().size(), std::ssize(modes));
    for (int i = 0; i < std::ssize(modes); ++i) {
        EXPECT_EQ(functionModes().at(i), modes[i].entry);
        DoorEntry entry;
        entry.functionMode = i;
        EXPECT_EQ(command(12, entry), modes[i].without);
        entry.period = u"07-16"_qs;
        EXPECT_EQ(command(12, entry), modes[i].command);
        EXPECT_EQ(isTimedMode(i), i > 2);
    }
}

TEST(DoorCommands, PeriodIsBroughtIntoFormCheckedAndCutForTheModel)
{
    using enum PeriodCheck;
    const struct {
        const char *typed;
        const char *normalised;
        PeriodCheck check;
        const char *onType310 = "";
    } cases[] = {
        {"7-16", "07:00-16:00", Passes, "07-16"},
        {"07-16", "07:00-16:00", Passes, "07-16"},
        {"7:45-16:15", "07:45-16:15", Passes, "07-16"},
        {"7:45-9:30", "07:45-09:30", Passes, "07-09"},
        {"07:45-9", "07:45-09:00", Passes, "07-09"},
        {"7-9", "07:00-09:00", Passes, "07-09"},
        {"23:59-00:00", "23:59-00:00", Passes, "23-00"},
        {"16-7", "16:00-07:00", Passes, "16-07"}, // nothing compares start and stop
        {"07:45-16:15 xyz", "07:45-16:15 xyz", Passes, "07-16"},
        {"24:00-16:00", "24:00-16:00", Fails},
        {"07:00-24:00", "07:00-24:00", Fails},
        {"07:60-16:00", "07:60-16:00", Fails},
        {"07:00-16:60", "07:00-16:60", Fails},
        {"07.00-16:00", "07.00-16:00", Fails},
        {"07:00 16:00", "07:00 16:00", Fails},
        {"07:00-16.00", "07:00-16.00", Fails},
        {"", "", NoNumber},
        {"7", "7", NoNumber},
        {"hele dagen", "hele dagen", NoNumber},
        {"25:xx-16:00", "25:xx-16:00", NoNumber}, // a beep would tell of the hour alone
        {"-1:00-16:00", "-1:00-16:00", NoNumber},
        {" 7:00-16:00", " 7:00-16:00", NoNumber},
        {"07:00-1a:00", "07:00-1a:00", NoNumber},
    };
    for (const auto &[typed, normalised, check, onType310] : cases) {
        const QString text = TimeFieldNormalise(QString::fromUtf8(typed));
        EXPECT_EQ(text.toStdString(), normalised) << typed;
        EXPECT_EQ(checkPeriod(text), check) << typed;
        if (check == Passes) {
            EXPECT_EQ(periodText(text, DoorModel::Type310).toStdString(), onType310);
            EXPECT_EQ(periodText(text, DoorModel::Mk).toStdString(), normalised);
        }
    }
}
