#include "data/Connection.h"
#include "users/UsersWorld.h"

#include <gtest/gtest.h>

namespace {

TEST(SlettBruker, WaitingPeriodGoesInSilence)
{
    UsersWorld world;
    world.addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs);
    world.addWaiting(kUser, u"6/12/2026"_qs);
    UserEntry entry = world.guest();
    entry.id = world.database.single(u"SELECT ID FROM NYEbrukere"_qs);
    EXPECT_TRUE(world.users.SlettBruker(entry));
    EXPECT_EQ(world.waiting(), QStringList());
    EXPECT_EQ(world.onDoors().size(), 1);
    EXPECT_EQ(world.queue(), QStringList());
}

TEST(SlettBruker, ConfirmedUserGetsACommandAndKeepsTheRow)
{
    UsersWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs, kOtherDoor);
    UserEntry entry = world.guest();
    entry.from = QDate(2026, 12, 5);
    entry.konto.clear();
    EXPECT_TRUE(world.users.SlettBruker(entry));
    EXPECT_EQ(world.rows(u"SELECT KeyNummer, Status, [Gyldig fra], [Gyldig til], Konto FROM"
                         " TBLbrukere ORDER BY Rad"_qs),
              (QStringList{u"+4790000001|Slett|5/12/2026|1/12/2026|Fast"_qs,
                           u"+4790000002|Aktiv |5/12/2026|31/12/2026|Fast"_qs}));
    EXPECT_EQ(world.queue(), QStringList{u"+4790000001|U 91234567|Hovedport|2026-12-01|UNSENT"_qs});
}

TEST(SlettBruker, SecondPressRefreshesTheWaitingCommand)
{
    UsersWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    world.users.SlettBruker(world.guest());
    world.users.SlettBruker(world.guest());
    EXPECT_EQ(world.queue().size(), 1);
    world.database.look().run(u"UPDATE SMS_Sent SET CMGS = '17:OK'"_qs);
    world.refresh();
    world.users.SlettBruker(world.guest());
    EXPECT_EQ(world.queue().size(), 2);
}

TEST(SlettBruker, UnconfirmedUserGoesAtOnceButTheRegistrationIsStillSent)
{
    for (const QString &status : {u"NY"_qs, u"Ny"_qs}) {
        UsersWorld world;
        world.users.RegistrerBruker(world.guest());
        world.database.look().run(u"UPDATE TBLbrukere SET Status = ?"_qs, {status});
        world.refresh();
        EXPECT_TRUE(world.users.SlettBruker(world.guest()));
        EXPECT_EQ(world.onDoors(), QStringList());
        EXPECT_EQ(world.rows(u"SELECT SMS_Text, CMGS FROM SMS_Sent"_qs),
                  QStringList{u"I 91234567>26120100<26120324|UNSENT"_qs});
    }
}

TEST(SlettBruker, SweepTakesMarkedRowsAndABareRegistrationOfAnyDoor)
{
    UsersWorld world;
    world.addUser(kUser, u"Gjest"_qs, u"Ny"_qs);
    for (const auto &[text, state] : {std::pair(u"i 91234567"_qs, u"UNSENT"_qs),
                                      {u"U 90009000"_qs, u"SLETTET"_qs},
                                      {u"U 90009001"_qs, u"slettet"_qs},
                                      {u"Hei"_qs, u"UNSENT"_qs}}) {
        world.database.add(u"SMS_Sent"_qs, u"TilNummer,SMS_Text,CMGS"_qs,
                           {kOtherDoor, text, state});
    }
    world.refresh();
    world.users.SlettBruker(world.guest());
    EXPECT_EQ(world.rows(u"SELECT SMS_Text FROM SMS_Sent"_qs), QStringList{u"Hei"_qs});
}

TEST(SlettBruker, NumberThatIsNotFoundTouchesNobody)
{
    for (const QString &number : {QString(), u"+4790009000"_qs, u"'"_qs}) {
        UsersWorld world;
        world.addUser(kUser, u"Gjest"_qs, u"Ny"_qs);
        EXPECT_FALSE(world.users.SlettBruker(world.guest(number)));
        EXPECT_EQ(world.onDoors().size(), 1);
        EXPECT_EQ(world.queue(), QStringList());
    }
}

TEST(SlettBruker, PeriodNumberedFrom9999OnIsTakenForTheUserOnTheDoor)
{
    UsersWorld world;
    world.addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs);
    world.addWaiting(kUser, u"6/12/2026"_qs);
    world.database.look().run(u"UPDATE NYEbrukere SET ID = 9999"_qs);
    world.refresh();
    world.users.SlettBruker(world.guest());
    EXPECT_EQ(world.waiting().size(), 1);
    EXPECT_EQ(world.rows(u"SELECT Status FROM TBLbrukere"_qs), QStringList{u"Slett"_qs});
}

TEST(SlettBruker, RowOfAnotherPcIsNotOverwrittenButTheCommandGoes)
{
    UsersWorld world;
    world.addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs);
    world.database.look().run(u"CREATE TRIGGER held BEFORE UPDATE ON TBLbrukere"
                              " BEGIN SELECT RAISE(ABORT, 'held'); END"_qs);
    world.refresh();
    EXPECT_TRUE(world.users.SlettBruker(world.guest()));
    EXPECT_EQ(world.rows(u"SELECT Status FROM TBLbrukere"_qs), QStringList{u"Aktiv "_qs});
    EXPECT_EQ(world.queue().size(), 1);
}

} // namespace
