#include "doors/DoorCommands.h"

#include <gtest/gtest.h>

namespace {

/// What the button of this index sends; "-" for nothing, not even an empty command.
QString command(int index, const DoorEntry &entry)
{
    return doorCommand(index, entry).value_or(u"-"_qs);
}

/// As QString prints itself in a failing test: readable.
std::string joined(const QStringList &texts)
{
    return texts.join(u'|').toStdString();
}

} // namespace

TEST(DoorCommands, AreExactlyThese)
{
    DoorEntry entry;
    entry.hours = {u"07"_qs, u"09"_qs, u"15"_qs, u"17"_qs};
    for (std::size_t i = 0; i < entry.KeyTXT.size(); ++i) {
        entry.KeyTXT[i] = u"<%1>"_qs.arg(i); // a command of a wrong field is seen
    }
    QStringList said = {command(11, entry), command(12, entry)};
    entry.alarmFunction = 3;
    entry.functionMode = 1;
    for (int index = 0; index <= 22; ++index) {
        said += command(index, entry);
    }
    EXPECT_EQ(joined(said),
              "-|-|-|AR|-|-|A1 <4>|A2 <5>|A3 <6>|A4 <7>|A5 <8>|A6 <9>|B !<10>|V3|L|"
              "P <13>|K|T1 <15>|T2 <16>|T3 <17>|T4 <18>|T5 <19>|T6 <20>|A7 07091517|-");
}

TEST(DoorCommands, ReadTheirFieldsAsTheUnitWantsThem)
{
    const struct {
        int index;
        int field;
        QString texts;
        const char *commands;
    } cases[] = {
        {1, 14, u"0|00| ||1"_qs, "?|AR|AR|AR|AR"},
        {9, 9, u"99887766|66|999999999|"_qs, "A6 99887766|A6 66|A6 999999999|A6 "},
        {9, 9, u"6|99999999"_qs, "A6 +4790000001|A6 +4790000001"},
        {10, 10, u"!Port|Po!rt| !Port|"_qs, "B !Port|B !Po!rt|B ! !Port|B !"},
        {17, 17, u""_qs, "T3 "},
    };
    for (const auto &[index, field, texts, commands] : cases) {
        QStringList said;
        for (const QString &text : texts.split(u'|')) {
            DoorEntry entry;
            entry.KeyTXT[0] = u" +4790000001"_qs;
            entry.KeyTXT[field] = text;
            said += command(index, entry);
        }
        EXPECT_EQ(joined(said), commands);
    }
}

TEST(DoorCommands, ListsHaveTheseEntriesAndTheFunctionsACodeOfTheirOwn)
{
    EXPECT_EQ(joined(alarmFunctions()),
              "ALARM AV|ALARM PÅ|Åpnet ved ALARM|Stengt ved ALARM|Endebryter A|Endebryter B|"
              "Endebr.A m/rapport|Endebr.B m/rapport|ALARM Enderbryter");
    EXPECT_EQ(joined(functionModes()),
              "Normal  (N)|Lukket  (L)|Oppe    (O)|Oppe hverdager|Oppe alle dager|"
              "Bistabil hverdager|Bistabil alle dager|Bare i dag|Hverdager int. 2|"
              "Alle dager int. 2");
    DoorEntry entry;
    QStringList alarms;
    for (entry.alarmFunction = 0; entry.alarmFunction < 9; ++entry.alarmFunction) {
        alarms += command(11, entry);
    }
    EXPECT_EQ(joined(alarms), "V0|V1|V2|V3|V4|V5|V6|V7|V8");
    QStringList modes;
    QStringList withoutPeriod;
    for (entry.functionMode = 0; entry.functionMode < 10; ++entry.functionMode) {
        entry.period.clear();
        withoutPeriod += command(12, entry);
        entry.period = u"07-16"_qs;
        modes += command(12, entry);
        EXPECT_EQ(isTimedMode(entry.functionMode), withoutPeriod.last().isEmpty());
    }
    EXPECT_EQ(joined(withoutPeriod), "N|L|O|||||||");
    EXPECT_EQ(joined(modes), "N|L|O|O 07-16*5|O 07-16*7|O 07-16*4|O 07-16*6|O 07-16*1|O 07-16*2|"
                             "O 07-16*3");
    EXPECT_FALSE(isTimedMode(-1));
}

TEST(DoorCommands, PeriodIsBroughtIntoFormCheckedAndCutForTheModel)
{
    const struct {
        const char *typed;
        const char *normalised;
        const char *onType310;
    } passing[] = {
        {"7-16", "07:00-16:00", "07-16"},
        {"7:45-16:15", "07:45-16:15", "07-16"},
        {"7:45-9:30", "07:45-09:30", "07-09"},
        {"07:45-9", "07:45-09:00", "07-09"},
        {"23:59-00:00", "23:59-00:00", "23-00"}, // nothing compares start and stop
        {"07:45-16:15 xyz", "07:45-16:15 xyz", "07-16"},
    };
    for (const auto &[typed, normalised, onType310] : passing) {
        const QString text = TimeFieldNormalise(QString::fromUtf8(typed));
        EXPECT_EQ(text.toStdString(), normalised);
        EXPECT_EQ(checkPeriod(text), PeriodCheck::Passes) << typed;
        EXPECT_EQ(periodText(text, DoorModel::Type310).toStdString(), onType310);
        EXPECT_EQ(periodText(text, DoorModel::Mk).toStdString(), normalised);
    }
    // In "25:xx" a beep would tell of the hour alone.
    for (const auto &[expected, periods] :
         {std::pair(PeriodCheck::Fails, u"24:00-16:00|07:00-24:00|07:60-16:00|07:00-16:60|"
                                        "07.00-16:00|07:00 16:00|07:00-16.00"_qs),
          {PeriodCheck::NoNumber, u"|7|hele dagen|25:xx-16:00|-1:00-16:00| 7:00-16:00|"
                                  "07:00-1a:00|07:00-1/:00"_qs}}) {
        for (const QString &typed : periods.split(u'|')) {
            EXPECT_EQ(checkPeriod(TimeFieldNormalise(typed)), expected) << typed.toStdString();
        }
    }
}
