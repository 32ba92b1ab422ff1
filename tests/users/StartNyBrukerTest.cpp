#include "platform/RuntimeFailure.h"
#include "users/UsersWorld.h"

namespace {

struct StartNyBruker : UsersWorld {
    /// One run behind what stands there, after the sets were opened anew.
    std::string start()
    {
        refresh();
        users.StartNyBruker();
        return state();
    }
};

TEST_F(StartNyBruker, FreePeriodMovesAndIsSentOnItsFirstDaysDate)
{
    addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs, kOtherDoor); // is not in the way
    addWaiting(kUser, u"2/12/2026"_qs);
    EXPECT_EQ(start(), "2|4567|5/12/2026|Aktiv ;1|4567|2/12/2026|Ny //  // "
                       "1|I 91234567>26120206<26122418|2026-12-02");
    EXPECT_EQ(rows(u"SELECT [Gyldig til], FraTid, TilTid, Konto, Saldo FROM TBLbrukere"
                   " WHERE Status = 'Ny'"_qs),
              "24/12/2026|06|18|Gjest|0");
    // The command follows the system's order of dates, and is not sent without a day.
    host.format = u"MM/dd/yyyy"_qs;
    run(u"DELETE FROM TBLbrukere"_qs);
    run(u"DELETE FROM SMS_Sent"_qs);
    addWaiting(kUser, u"2/12/2026"_qs);
    start();
    EXPECT_EQ(queue(), "1|I 91234567>26021206<26122418|2026-02-12");
    run(u"DELETE FROM TBLbrukere"_qs);
    run(u"DELETE FROM SMS_Sent"_qs);
    addWaiting(kUser, u"snart"_qs);
    EXPECT_THROW(start(), RuntimeFailure);
    EXPECT_EQ(state(), "1|4567|snart|Ny //  // ");
}

TEST_F(StartNyBruker, OldestStartOfAllDoorsGoesFirstAndOnlyOneMoves)
{
    addWaiting(kUser, u"10/12/2026"_qs);
    addWaiting(kOtherUser, u"9/12/2026"_qs, u"ny"_qs, kOtherDoor);
    EXPECT_EQ(start(), "2|9000|9/12/2026|Ny // 1|4567|10/12/2026|NY // "
                       "2|I 90009000>26120906<26122418|2026-12-09");
    EXPECT_EQ(rows(u"SELECT Etternavn FROM SMS_Sent"_qs), "Garasje");
}

TEST_F(StartNyBruker, EarlierPeriodChangesPlacesAndMovesOnTheNextRun)
{
    addUser(kUser, u"Fast"_qs, u"Aktiv "_qs, kDoor, u"7"_qs);
    addWaiting(kUser, u"30/11/2026"_qs);
    EXPECT_EQ(start(), " // 1|4567|30/11/2026|NY;1|4567|5/12/2026|NY // ");
    EXPECT_EQ(gridRefills, 1);
    EXPECT_EQ(rows(u"SELECT Etternavn, Fornavn, [Gyldig til], FraTid, TilTid, Konto, Saldo"
                   " FROM NYEbrukere WHERE Konto = 'Fast'"_qs),
              "Ås|Kari|31/12/2026|08|16|Fast|7");
    EXPECT_EQ(start(), "1|4567|30/11/2026|Ny // 1|4567|5/12/2026|NY // "
                       "1|I 91234567>26113006<26122418|2026-11-30");
}

TEST_F(StartNyBruker, OfThreePeriodsTwoWaitUntilTheDoorIsFree)
{
    for (const auto &from : {u"3/12/2026"_qs, u"1/12/2026"_qs, u"1/12/2026"_qs}) {
        addWaiting(kUser, from);
    }
    for (int i = 0; i < 4; ++i) {
        start();
    }
    EXPECT_TRUE(state().starts_with("1|4567|1/12/2026|Ny // 1|4567|3/12/2026|NY;1|")) << state();
    run(u"DELETE FROM TBLbrukere"_qs);
    EXPECT_TRUE(start().starts_with("1|4567|1/12/2026|Ny // 1|4567|3/12/2026|NY //")) << state();
}

TEST_F(StartNyBruker, OtherStatusStaysForGoodUnlessTheWalkReachesIt)
{
    addWaiting(kOtherUser, u"8/12/2026"_qs, u"Aktiv "_qs);
    EXPECT_EQ(start(), " // 1|9000|8/12/2026|Aktiv  // ");
    // A blocked row before it starts the walk: then it moves, as "Ny" and without a command.
    addUser(kUser, u"Gjest"_qs);
    addWaiting(kUser, u"7/12/2026"_qs);
    EXPECT_EQ(start(), "1|4567|5/12/2026|Aktiv ;1|9000|8/12/2026|Ny // 1|4567|7/12/2026|NY // ");
}

TEST_F(StartNyBruker, FailedWriteNeitherLosesNorDoublesAPeriod)
{
    addWaiting(kUser, u"2/12/2026"_qs);
    forbid(u"INSERT ON TBLbrukere"_qs);
    EXPECT_THROW(start(), RuntimeFailure);
    EXPECT_EQ(state(), " // 1|4567|2/12/2026|NY // ");
    run(u"DROP TRIGGER held"_qs);
    addUser(kUser, u"Fast"_qs);
    forbid(u"DELETE ON TBLbrukere"_qs); // in a change of places
    EXPECT_THROW(start(), RuntimeFailure);
    EXPECT_EQ(state(), "1|4567|5/12/2026|Aktiv  // 1|4567|2/12/2026|NY // ");
}

} // namespace
