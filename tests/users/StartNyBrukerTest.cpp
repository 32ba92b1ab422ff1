#include "data/Connection.h"
#include "platform/RuntimeFailure.h"
#include "users/UsersWorld.h"

#include <gtest/gtest.h>

namespace {

TEST(StartNyBruker, FreePeriodMovesAndIsSentOnItsFirstDaysDate)
{
    UsersWorld world;
    world.addWaiting(kUser, u"2/12/2026"_qs);
    world.users.StartNyBruker();
    EXPECT_EQ(world.waiting(), QStringList());
    EXPECT_EQ(world.rows(u"SELECT KeyNummer, KeyBruker, Status, [Gyldig fra], [Gyldig til], FraTid,"
                         " TilTid, Konto, Saldo FROM TBLbrukere"_qs),
              QStringList{u"+4790000001|+4791234567|Ny|2/12/2026|24/12/2026|06|18|Gjest|0"_qs});
    EXPECT_EQ(
        world.queue(),
        QStringList{u"+4790000001|I 91234567>26120206<26122418|Hovedport|2026-12-02|UNSENT"_qs});
}

TEST(StartNyBruker, OldestStartOfAllDoorsGoesFirstAndOnlyOneMoves)
{
    UsersWorld world;
    world.addWaiting(kUser, u"10/12/2026"_qs);
    world.addWaiting(u"+4790009000"_qs, u"9/12/2026"_qs, u"ny"_qs, kOtherDoor);
    world.users.StartNyBruker();
    EXPECT_EQ(world.onDoors(), QStringList{u"+4790000002|+4790009000|9/12/2026|Ny"_qs});
    EXPECT_EQ(world.waiting(), QStringList{u"+4790000001|+4791234567|10/12/2026|NY"_qs});
    EXPECT_TRUE(world.queue().value(0).contains(u"|Garasje|"_qs));
}

TEST(StartNyBruker, PeriodBehindAnotherOfItsUserWaits)
{
    UsersWorld world;
    world.addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs);
    world.addWaiting(kUser, u"5/12/2026"_qs); // the same day is not later
    world.users.StartNyBruker();
    EXPECT_EQ(world.waiting().size(), 1);
    EXPECT_EQ(world.onDoors(), QStringList{u"+4790000001|+4791234567|5/12/2026|Aktiv "_qs});
    EXPECT_EQ(world.queue(), QStringList());
}

TEST(StartNyBruker, RowOnAnotherDoorIsNotInTheWay)
{
    UsersWorld world;
    world.addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs, kOtherDoor);
    world.addWaiting(kUser, u"6/12/2026"_qs);
    world.users.StartNyBruker();
    EXPECT_EQ(world.waiting(), QStringList());
    EXPECT_EQ(world.queue().size(), 1);
}

TEST(StartNyBruker, EarlierPeriodChangesPlacesAndMovesOnTheNextRun)
{
    UsersWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs, kDoor, u"7"_qs);
    world.addWaiting(kUser, u"30/11/2026"_qs);
    world.users.StartNyBruker();
    EXPECT_EQ(world.onDoors(), QStringList());
    EXPECT_EQ(world.queue(), QStringList());
    EXPECT_EQ(world.gridRefills, 1);
    EXPECT_EQ(
        world.rows(u"SELECT Bruker, KeyNummer, Etternavn, Fornavn, [Gyldig fra], [Gyldig til],"
                   " FraTid, TilTid, Konto, Saldo, Status FROM NYEbrukere ORDER BY ID DESC"
                   " LIMIT 1"_qs),
        QStringList{u"+4791234567|+4790000001|Ås|Kari|5/12/2026|31/12/2026|08|16|Fast|7|NY"_qs});

    world.refresh();
    world.users.StartNyBruker();
    EXPECT_EQ(world.onDoors(), QStringList{u"+4790000001|+4791234567|30/11/2026|Ny"_qs});
    EXPECT_EQ(world.waiting(), QStringList{u"+4790000001|+4791234567|5/12/2026|NY"_qs});
    EXPECT_EQ(world.queue().size(), 1);
}

TEST(StartNyBruker, OfThreePeriodsTwoWaitUntilTheDoorIsFree)
{
    UsersWorld world;
    for (const auto &from : {u"3/12/2026"_qs, u"1/12/2026"_qs, u"2/12/2026"_qs}) {
        world.addWaiting(kUser, from);
    }
    for (int run = 0; run < 4; ++run) {
        world.users.StartNyBruker();
        world.refresh();
    }
    EXPECT_EQ(world.onDoors(), QStringList{u"+4790000001|+4791234567|1/12/2026|Ny"_qs});
    EXPECT_EQ(world.waiting().size(), 2);

    world.database.look().run(u"DELETE FROM TBLbrukere"_qs);
    world.refresh();
    world.users.StartNyBruker();
    EXPECT_EQ(world.onDoors(), QStringList{u"+4790000001|+4791234567|2/12/2026|Ny"_qs});
    EXPECT_EQ(world.queue().size(), 2);
}

TEST(StartNyBruker, OtherStatusStaysForGoodUnlessTheWalkReachesIt)
{
    UsersWorld world;
    world.addWaiting(u"+4790009000"_qs, u"8/12/2026"_qs, u"Aktiv "_qs);
    world.users.StartNyBruker();
    EXPECT_EQ(world.waiting().size(), 1);

    // A blocked row before it starts the walk: then it moves, as "Ny" and without a command.
    world.addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs);
    world.addWaiting(kUser, u"7/12/2026"_qs);
    world.users.StartNyBruker();
    EXPECT_EQ(world.onDoors(), (QStringList{u"+4790000001|+4791234567|5/12/2026|Aktiv "_qs,
                                            u"+4790000001|+4790009000|8/12/2026|Ny"_qs}));
    EXPECT_EQ(world.queue(), QStringList());
}

TEST(StartNyBruker, CommandFollowsTheSystemsOrderOfDayAndMonth)
{
    UsersWorld world;
    world.host.format = u"MM/dd/yyyy"_qs;
    world.addWaiting(kUser, u"2/12/2026"_qs);
    world.users.StartNyBruker();
    EXPECT_EQ(world.rows(u"SELECT SMS_Text, Dato FROM SMS_Sent"_qs),
              QStringList{u"I 91234567>26021206<26122418|2026-02-12"_qs});
}

TEST(StartNyBruker, DayThatIsNoneMovesTheRowButSendsNothing)
{
    UsersWorld world;
    world.addWaiting(kUser, u"snart"_qs);
    EXPECT_THROW(world.users.StartNyBruker(), RuntimeFailure);
    EXPECT_EQ(world.waiting(), QStringList());
    EXPECT_EQ(world.onDoors(), QStringList{u"+4790000001|+4791234567|snart|Ny"_qs});
    EXPECT_EQ(world.queue(), QStringList());
}

TEST(StartNyBruker, FailedWriteLeavesThePeriodWaiting)
{
    UsersWorld world;
    world.addWaiting(kUser, u"2/12/2026"_qs);
    world.database.look().run(u"CREATE TRIGGER full BEFORE INSERT ON TBLbrukere"
                              " BEGIN SELECT RAISE(ABORT, 'disk full'); END"_qs);
    world.refresh();
    EXPECT_THROW(world.users.StartNyBruker(), RuntimeFailure);
    EXPECT_EQ(world.waiting(), QStringList{u"+4790000001|+4791234567|2/12/2026|NY"_qs});
    EXPECT_EQ(world.onDoors(), QStringList());
}

TEST(StartNyBruker, FailedDeletionInAChangeOfPlacesDoublesNothing)
{
    UsersWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    world.addWaiting(kUser, u"30/11/2026"_qs);
    world.database.look().run(u"CREATE TRIGGER held BEFORE DELETE ON TBLbrukere"
                              " BEGIN SELECT RAISE(ABORT, 'held'); END"_qs);
    world.refresh();
    EXPECT_THROW(world.users.StartNyBruker(), RuntimeFailure);
    EXPECT_EQ(world.waiting().size(), 1);
    EXPECT_EQ(world.onDoors().size(), 1);
}

} // namespace
