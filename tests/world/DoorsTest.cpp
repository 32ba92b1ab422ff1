#include "support/World.h"

#include <gtest/gtest.h>

namespace {

/// A door of each language. Each holds two users, of whom the second has been in twice.
struct DoorsWorld : World {
    DoorsWorld()
        : World({.doors = {{u"+4790000001"_qs, u"Hovedport"_qs, DoorLanguage::Norwegian},
                           {u"+4790000002"_qs, u"Bagdør"_qs, DoorLanguage::Danish},
                           {u"+4790000003"_qs, u"Källarport"_qs, DoorLanguage::Swedish}}})
    {
        execute(u"UPDATE KEYTable SET KeySikkerhet = '6'"_qs);
        for (std::size_t i = 0; i < 3; ++i) {
            for (const auto &number : {u"91234567"_qs, u"92345678"_qs}) {
                door(i).seedUser(number, {DoorPeriod{{2026, 1, 1}, 0, {2027, 1, 1}, 24}});
            }
            door(i).call(u"+4792345678"_qs, {QDate(2026, 11, 30), QTime(8, 5)});
            door(i).call(u"+4792345678"_qs, {QDate(2026, 12, 1), QTime(17, 30)});
        }
    }
    /// The operator's command goes to a door; its answers are read when this comes back.
    void tell(std::size_t i, const QString &command, milliseconds time = 1min)
    {
        modemLink().queue.queueDoorCommand(door(i).number(), door(i).name(), command,
                                           clock.now().date(), u"UNSENT"_qs);
        clock.run(time);
        EXPECT_TRUE(runUntilIdle()) << qPrintable(command);
    }
};

struct Step {
    const char *command;
    const char *query; ///< one row for each door
    QStringList expected;
};

} // namespace

// Each kind of answer, from the operator's command to the tables, in all three languages.
TEST(Doors, AnswerEveryCommandSoThatTheTablesFollow)
{
    const auto each = [](const QString &row) { return QStringList{row, row, row}; };
    const char *const kAdmin = "SELECT Admin FROM KEYTable ORDER BY KeyNummer";
    const char *const kReport =
        "SELECT Beskrivelse, Admin, Admin1, Admin2, Admin3, Admin4, Admin5, "
        "Eget_Nummer FROM KEYTable ORDER BY KeyNummer";
    const char *const kUsers = "SELECT group_concat(KeyBruker || ' ' || Status || ' ' || Konto, "
                               "'; ') FROM TBLbrukere GROUP BY KeyNummer ORDER BY KeyNummer";
    const char *const kNewUser = "SELECT Saldo FROM TBLbrukere "
                                 "WHERE trim(KeyBruker) = '+4793456789' ORDER BY KeyNummer";
    const char *const kSecurity = "SELECT KeySikkerhet FROM KEYTable ORDER BY KeyNummer";
    const char *const kLog = "SELECT group_concat(keyuser || ' ' || dato, '; ') FROM LOGGData "
                             "GROUP BY keynummer ORDER BY keynummer";
    const Step steps[] = {
        {"?", kAdmin, each(u"1"_qs)},
        {"A2 92345678",
         kReport,
         {u"Hovedport|99000000||92345678||||99999999"_qs,
          u"Bagdør|99000000||92345678||||99999999"_qs,
          u"Källarport|99000000||92345678||||99999999"_qs}},
        {"AR", kAdmin, each(u"0"_qs)},
        {"?", kAdmin, each(u"1"_qs)},
        // The second user's mark is behind the first too: the first mark of a message counts.
        {"K", kUsers, each(u"+4791234567 AKTIV A2 Hentet; +4792345678 AKTIV A2 Hentet"_qs)},
        // A new user, one who is there already, and one who goes.
        {"I 93456789>26120100<26120324", kNewUser, each(u"0"_qs)},
        {"I 93456789*25", kNewUser, each(u" 25"_qs)},
        {"U 93456789", kNewUser, {}},
        // The last entry's minute has no line feed behind it, and is that of the entry before.
        {"r5", kLog, each(u"92345678 30/11,08:05; 92345678 01/12,17:05"_qs)},
        {"V0", kSecurity, each(u"6"_qs)},
        {"A5 99000000", kSecurity, each(u"4"_qs)},
        {"A6 +4790000009",
         kReport,
         {u"Hovedport|99000000||92345678|||99000000|90000009"_qs,
          u"Bagdør|99000000||92345678|||99000000|90000009"_qs,
          u"Källarport|99000000||92345678|||99000000|90000009"_qs}},
        {"B !Sidedør", "SELECT Beskrivelse FROM KEYTable ORDER BY KeyNummer", each(u"Sidedør"_qs)},
        {"A2 ", "SELECT Admin2 FROM KEYTable ORDER BY KeyNummer", each(QString())},
    };
    DoorsWorld world;
    for (const auto &[command, query, expected] : steps) {
        for (std::size_t i = 0; i < 3; ++i) {
            world.tell(i, QString::fromUtf8(command));
        }
        EXPECT_EQ(world.rows(QString::fromLatin1(query)), expected) << command;
    }
    EXPECT_EQ(world.door(1).settings().alarmFunction, 0);

    world.execute(u"DELETE FROM SMS_Received"_qs);
    world.tell(2, u"V1"_qs);
    world.tell(2, u"T5 Någon på väg in"_qs);
    world.tell(2, u"T6 Östra porten"_qs);
    EXPECT_EQ(world.door(2).alarm(), 1) << "administrator and assistant are one";
    world.clock.run(1min);
    EXPECT_EQ(world.rows(u"SELECT FraNummer, SMS_Text FROM SMS_Received"_qs),
              QStringList{u"+4790000003|Någon på väg in\r\nÖstra porten"_qs});
}

TEST(Doors, TellHundredOpeningsAndHundredUsersWhole)
{
    DoorsWorld world;
    for (int i = 0; i < 100; ++i) {
        const QString number = QString::number(93'000'000 + i);
        world.door().seedUser(number, {DoorPeriod{{2026, 1, 1}, 0, {2027, 1, 1}, 24}});
        world.door().call(number, QDateTime({2026, 12, 1}, QTime(8, 0).addSecs(60 * i)));
    }
    // Once more, the same openings are known.
    for (int times = 0; times < 2; ++times) {
        world.tell(0, u"r100"_qs, 3min);
        EXPECT_EQ(world.value(u"SELECT count(*) || ' ' || count(DISTINCT keyuser) || ' ' || "
                              "min(keyuser) || ' ' || max(keyuser) FROM LOGGData"_qs),
                  u"100 100 93000000 93000099");
    }
    world.tell(0, u"K"_qs, 3min);
    EXPECT_EQ(world.value(u"SELECT count(*) FROM TBLbrukere WHERE Konto = 'Hentet'"_qs), u"102");
    EXPECT_EQ(world.value(u"SELECT max(length(SMS_Text) - length(replace(SMS_Text, '*', ''))) "
                          "FROM SMS_Received"_qs),
              u"16");
}
