#include "users/UsersWorld.h"

namespace {

using SlettBruker = UsersWorld;

TEST_F(SlettBruker, WaitingPeriodGoesInSilenceButFromNumber9999OnTheUserGoes)
{
    addUser(kUser, u"Gjest"_qs);
    addWaiting(kUser, u"6/12/2026"_qs);
    UserEntry entry = guest();
    entry.id = database.single(u"SELECT ID FROM NYEbrukere"_qs);
    EXPECT_TRUE(users.SlettBruker(entry));
    EXPECT_EQ(state(), "1|4567|5/12/2026|Aktiv  //  // ");
    addWaiting(kUser, u"6/12/2026"_qs);
    run(u"UPDATE NYEbrukere SET ID = 9999"_qs);
    users.SlettBruker(guest());
    EXPECT_EQ(state(), "1|4567|1/12/2026|Slett // 1|4567|6/12/2026|NY // 1|U 91234567|2026-12-01");
}

TEST_F(SlettBruker, ConfirmedUserKeepsTheRowAndGetsOneCommandHoweverOftenPressed)
{
    addUser(kUser, u"Fast"_qs);
    addUser(kUser, u"Fast"_qs, u"Aktiv "_qs, kOtherDoor);
    UserEntry entry = guest();
    entry.from = QDate(2026, 12, 5);
    entry.konto.clear();
    EXPECT_TRUE(users.SlettBruker(entry));
    EXPECT_TRUE(users.SlettBruker(entry));
    EXPECT_EQ(rows(u"SELECT KeyNummer, Status, [Gyldig fra], [Gyldig til], Konto FROM"
                   " TBLbrukere ORDER BY Rad"_qs),
              "+4790000001|Slett|5/12/2026|1/12/2026|Fast;"
              "+4790000002|Aktiv |5/12/2026|31/12/2026|Fast");
    EXPECT_EQ(queue(), "1|U 91234567|2026-12-01");
    run(u"UPDATE SMS_Sent SET CMGS = '17:OK'"_qs);
    users.SlettBruker(entry);
    EXPECT_EQ(rows(u"SELECT CMGS FROM SMS_Sent ORDER BY ID"_qs), "17:OK;UNSENT");
}

TEST_F(SlettBruker, UnconfirmedUserGoesAtOnceButTheRegistrationIsStillSent)
{
    for (const QString &status : {u"NY"_qs, u"Ny"_qs}) {
        users.RegistrerBruker(guest());
        run(u"UPDATE TBLbrukere SET Status = '%1'"_qs.arg(status));
        EXPECT_TRUE(users.SlettBruker(guest()));
        EXPECT_EQ(state(), " //  // 1|I 91234567>26120100<26120324|2026-12-01");
    }
}

TEST_F(SlettBruker, SweepTakesMarkedRowsAndABareRegistrationOfAnyDoor)
{
    addUser(kUser, u"Gjest"_qs, u"Ny"_qs);
    run(u"INSERT INTO SMS_Sent (TilNummer, SMS_Text, CMGS) VALUES"
        " ('+4790000002', 'i 91234567', 'UNSENT'), ('1', 'U 90009000', 'SLETTET'),"
        " ('1', 'U 90009001', 'slettet'), ('1', 'Hei', 'UNSENT')"_qs);
    users.SlettBruker(guest());
    EXPECT_EQ(rows(u"SELECT SMS_Text FROM SMS_Sent"_qs), "Hei");
}

TEST_F(SlettBruker, NumberThatIsNotFoundTouchesNobodyAndAFailedWriteKeepsNoCommandBack)
{
    addUser(kUser, u"Gjest"_qs, u"Ny"_qs);
    for (const QString &number : {QString(), kOtherUser, u"'"_qs}) {
        EXPECT_FALSE(users.SlettBruker(guest(number)));
        EXPECT_EQ(state(), "1|4567|5/12/2026|Ny //  // ");
    }
    // A row that cannot be written stays, but the command goes.
    run(u"UPDATE TBLbrukere SET Status = 'Aktiv '"_qs);
    forbid(u"UPDATE ON TBLbrukere"_qs);
    EXPECT_TRUE(users.SlettBruker(guest()));
    EXPECT_EQ(state(), "1|4567|5/12/2026|Aktiv  //  // 1|U 91234567|2026-12-01");
}

} // namespace
