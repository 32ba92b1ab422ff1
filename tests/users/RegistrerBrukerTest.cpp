#include "platform/RuntimeFailure.h"
#include "users/UsersWorld.h"

namespace {

using RegistrerBruker = UsersWorld;
using LagreNyBruker = UsersWorld;

TEST_F(RegistrerBruker, ExistingRowIsOverwrittenAndTheCatalogueLeftAlone)
{
    addUser(kUser, u"Fast"_qs);
    UserEntry entry = guest();
    entry.status.clear();
    entry.konto.clear();
    users.RegistrerBruker(entry);
    EXPECT_EQ(rows(u"SELECT Status, [Gyldig fra], [Gyldig til], FraTid, TilTid, Konto FROM"
                   " TBLbrukere"_qs),
              "Aktiv |1/12/2026|3/12/2026|00|24|Fast");
    EXPECT_EQ(rows(u"SELECT Etternavn FROM Katalog"_qs), "Berg");
}

TEST_F(RegistrerBruker, SameCommandTwiceIsQueuedOnceForADoorAndOnceMoreForAnother)
{
    for (const QString &door : {kDoor, kDoor, kOtherDoor}) {
        standOn(door);
        users.RegistrerBruker(guest());
    }
    EXPECT_EQ(state(), "1|4567|1/12/2026|NY;2|4567|1/12/2026|NY //  // "
                       "1|I 91234567>26120100<26120324|2026-12-01;"
                       "2|I 91234567>26120100<26120324|2026-12-01");
}

TEST_F(RegistrerBruker, NewUserGetsAllRowsAndWithABalanceNoEndButTheHoursOfTheForm)
{
    UserEntry entry = guest();
    entry.saldo = u"25"_qs;
    entry.tilTid = u"16"_qs;
    entry.fornavn.clear();
    entry.etternavn.clear();
    users.RegistrerBruker(entry);
    EXPECT_EQ(rows(u"SELECT Bruker, BrukerKort, Etternavn, Fornavn FROM Katalog"_qs),
              "+4791234567|91234567|?|?");
    EXPECT_EQ(rows(u"SELECT KeyNummer, KeyBruker, Status, [Gyldig fra], [Gyldig til], FraTid,"
                   " TilTid, Konto, Saldo FROM TBLbrukere"_qs),
              "+4790000001|+4791234567|NY|1/12/2026|31/12/2099|00|16|Gjest|25");
    EXPECT_EQ(rows(u"SELECT TilNummer, TilNummerKort, SMS_Text, Etternavn, Fornavn, Dato, DatoLNG,"
                   " CMGS FROM SMS_Sent"_qs),
              "+4790000001|90000001|I 91234567*25|Hovedport||2026-12-01|46357|UNSENT");
}

TEST_F(RegistrerBruker, FailureLeavesWhatWasWrittenBeforeIt)
{
    EXPECT_THROW(users.RegistrerBruker(guest(u"+4791'34567"_qs)), RuntimeFailure);
    EXPECT_EQ(rows(u"SELECT Bruker FROM Katalog"_qs), "");
    UserEntry entry = guest();
    entry.saldo = u"mange"_qs;
    EXPECT_THROW(users.RegistrerBruker(entry), RuntimeFailure);
    EXPECT_EQ(rows(u"SELECT Bruker FROM Katalog"_qs), "+4791234567");
    EXPECT_EQ(state(), " //  // ");
}

TEST_F(RegistrerBruker, NumberIsAskedAboutByItsLength)
{
    struct Case {
        int length, boxes;
        Answer answer;
        bool registered;
    };
    for (const auto &[length, boxes, answer, registered] : {Case{10, 2, Answer::Ok, false},
                                                            {10, 1, Answer::Cancel, false},
                                                            {11, 0, Answer::Ok, true},
                                                            {12, 0, Answer::Ok, true},
                                                            {13, 1, Answer::Cancel, false},
                                                            {300, 1, Answer::Ok, true}}) {
        if (boxes > 0) {
            person.answers(u" SJEKK TELEFON NUMMER FOR RIKTIG ANTALL SIFFER !!!! "_qs, answer);
        }
        if (boxes > 1) {
            person.answers(u" Brukere må ha minst 11 siffer i telefonnummeret !!!"_qs);
        }
        person.texts.clear();
        run(u"DELETE FROM TBLbrukere"_qs);
        users.RegistrerBruker(guest(u"+47"_qs + QString(length - 3, u'9')));
        EXPECT_EQ(person.texts.size(), boxes) << length;
        EXPECT_EQ(rows(u"SELECT count(*) FROM TBLbrukere"_qs), registered ? "1" : "0") << length;
    }
}

TEST_F(LagreNyBruker, NewPeriodWaitsWithoutACommand)
{
    UserEntry entry = guest();
    entry.etternavn.clear();
    users.LagreNyBruker(entry);
    EXPECT_EQ(rows(u"SELECT KeyNummer, Bruker, Etternavn, Fornavn, Status, [Gyldig fra],"
                   " [Gyldig til], FraTid, TilTid, Konto, Saldo FROM NYEbrukere"_qs),
              "+4790000001|+4791234567|?|Kari|NY|1/12/2026|3/12/2026|00|24|Gjest|0");
    EXPECT_EQ(rows(u"SELECT Bruker FROM Katalog"_qs), "+4791234567");
    run(u"DELETE FROM KEYTable"_qs);
    users.save(guest(), true); // for no door
    EXPECT_EQ(state(), " // 1|4567|1/12/2026|NY // ");
}

TEST_F(LagreNyBruker, PeriodOnScreenKeepsItsNumberAndDoor)
{
    addWaiting(kOtherUser, u"2/12/2026"_qs);
    UserEntry entry = guest();
    entry.id = database.single(u"SELECT ID FROM NYEbrukere"_qs);
    users.LagreNyBruker(entry);
    EXPECT_EQ(state(), " // 1|9000|1/12/2026|NY // ");

    // The number that stands for no period on screen finds none, though one may bear it.
    run(u"UPDATE NYEbrukere SET ID = 9999"_qs);
    users.LagreNyBruker(guest());
    EXPECT_EQ(state(), " // 1|9000|1/12/2026|NY;1|4567|1/12/2026|NY // ");
}

} // namespace
