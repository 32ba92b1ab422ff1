#include "data/Connection.h"
#include "platform/RuntimeFailure.h"
#include "users/UsersWorld.h"

#include <gtest/gtest.h>

namespace {

const QString kRegisterText = QStringLiteral("I 91234567>26120100<26120324");

TEST(RegistrerBruker, NewUserGetsCatalogueRowDoorRowAndCommand)
{
    UsersWorld world;
    world.users.RegistrerBruker(world.guest());
    EXPECT_EQ(world.rows(u"SELECT Bruker, BrukerKort, Etternavn, Fornavn FROM Katalog"_qs),
              QStringList{u"+4791234567|91234567|Ås|Kari"_qs});
    EXPECT_EQ(world.rows(u"SELECT KeyNummer, KeyBruker, Status, [Gyldig fra], [Gyldig til], FraTid,"
                         " TilTid, Konto, Saldo FROM TBLbrukere"_qs),
              QStringList{u"+4790000001|+4791234567|NY|1/12/2026|3/12/2026|00|24|Gjest|0"_qs});
    EXPECT_EQ(world.rows(u"SELECT TilNummer, TilNummerKort, SMS_Text, Etternavn, Fornavn, Dato,"
                         " DatoLNG, CMGS FROM SMS_Sent"_qs),
              QStringList{u"+4790000001|90000001|I 91234567>26120100<26120324|Hovedport||"
                          "2026-12-01|46357|UNSENT"_qs});
}

TEST(RegistrerBruker, ExistingRowIsOverwrittenAndTheCatalogueLeftAlone)
{
    UsersWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    UserEntry entry = world.guest();
    entry.status.clear();
    entry.konto.clear();
    world.users.RegistrerBruker(entry);
    EXPECT_EQ(world.rows(u"SELECT Status, [Gyldig fra], [Gyldig til], FraTid, TilTid, Konto FROM"
                         " TBLbrukere"_qs),
              QStringList{u"Aktiv |1/12/2026|3/12/2026|00|24|Fast"_qs});
    EXPECT_EQ(world.rows(u"SELECT Etternavn FROM Katalog"_qs), QStringList{u"Berg"_qs});
    EXPECT_EQ(world.queue().size(), 1);
}

TEST(RegistrerBruker, SameCommandTwiceIsQueuedOnceForADoorAndOnceMoreForAnother)
{
    UsersWorld world;
    world.users.RegistrerBruker(world.guest());
    world.refresh();
    world.users.RegistrerBruker(world.guest());
    world.standOn(kOtherDoor);
    world.users.RegistrerBruker(world.guest());
    EXPECT_EQ(world.onDoors(), (QStringList{u"+4790000001|+4791234567|1/12/2026|NY"_qs,
                                            u"+4790000002|+4791234567|1/12/2026|NY"_qs}));
    EXPECT_EQ(world.queue(),
              (QStringList{u"+4790000001|"_qs + kRegisterText + u"|Hovedport|2026-12-01|UNSENT"_qs,
                           u"+4790000002|"_qs + kRegisterText + u"|Garasje|2026-12-01|UNSENT"_qs}));
}

TEST(RegistrerBruker, BalanceOfANamelessUserHasNoEndAndKeepsTheHoursOfTheForm)
{
    UsersWorld world;
    UserEntry entry = world.guest();
    entry.saldo = u"25"_qs;
    entry.tilTid = u"16"_qs;
    entry.fornavn.clear();
    entry.etternavn.clear();
    world.users.RegistrerBruker(entry);
    EXPECT_EQ(world.rows(u"SELECT Etternavn, Fornavn FROM Katalog"_qs), QStringList{u"?|?"_qs});
    EXPECT_EQ(world.rows(u"SELECT [Gyldig fra], [Gyldig til], TilTid, Saldo FROM TBLbrukere"_qs),
              QStringList{u"1/12/2026|31/12/2099|16|25"_qs});
    EXPECT_EQ(world.rows(u"SELECT SMS_Text FROM SMS_Sent"_qs), QStringList{u"I 91234567*25"_qs});
}

TEST(RegistrerBruker, BalanceThatIsNoNumberFailsBehindTheCatalogue)
{
    UsersWorld world;
    UserEntry entry = world.guest();
    entry.saldo = u"mange"_qs;
    EXPECT_THROW(world.users.RegistrerBruker(entry), RuntimeFailure);
    EXPECT_EQ(world.rows(u"SELECT Bruker FROM Katalog"_qs), QStringList{kUser});
    EXPECT_EQ(world.onDoors(), QStringList());
    EXPECT_EQ(world.queue(), QStringList());
}

TEST(RegistrerBruker, QuoteInTheNumberWritesNothing)
{
    UsersWorld world;
    EXPECT_THROW(world.users.RegistrerBruker(world.guest(u"+4791'34567"_qs)), RuntimeFailure);
    EXPECT_EQ(world.rows(u"SELECT Bruker FROM Katalog"_qs), QStringList());
    EXPECT_EQ(world.queue(), QStringList());
}

struct NumberCase {
    const char *name;
    int length;
    int boxes;
    Answer answer;
    bool registered;
};

class RegisteredNumber : public testing::TestWithParam<NumberCase> {};

TEST_P(RegisteredNumber, IsAskedAboutByItsLength)
{
    const NumberCase &test = GetParam();
    UsersWorld world;
    if (test.boxes > 0) {
        world.person.answers(u" SJEKK TELEFON NUMMER FOR RIKTIG ANTALL SIFFER !!!! "_qs,
                             test.answer);
    }
    if (test.boxes > 1) {
        world.person.answers(u" Brukere må ha minst 11 siffer i telefonnummeret !!!"_qs);
    }
    const QString number = u"+47"_qs + QString(test.length - 3, u'9');
    world.users.RegistrerBruker(world.guest(number));
    EXPECT_EQ(world.person.texts.size(), test.boxes);
    EXPECT_EQ(world.onDoors().size(), test.registered ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Lengths, RegisteredNumber,
                         testing::Values(NumberCase{"tenRefused", 10, 2, Answer::Ok, false},
                                         NumberCase{"tenCancelled", 10, 1, Answer::Cancel, false},
                                         NumberCase{"eleven", 11, 0, Answer::Ok, true},
                                         NumberCase{"twelve", 12, 0, Answer::Ok, true},
                                         NumberCase{"thirteenInsisted", 13, 1, Answer::Ok, true},
                                         NumberCase{"thirteenCancelled", 13, 1, Answer::Cancel,
                                                    false},
                                         NumberCase{"threeHundred", 300, 1, Answer::Ok, true}),
                         [](const auto &instance) { return std::string(instance.param.name); });

TEST(LagreNyBruker, NewPeriodWaitsWithoutACommand)
{
    UsersWorld world;
    UserEntry entry = world.guest();
    entry.etternavn.clear();
    world.users.LagreNyBruker(entry);
    EXPECT_EQ(
        world.rows(u"SELECT KeyNummer, Bruker, Etternavn, Fornavn, Status, [Gyldig fra],"
                   " [Gyldig til], FraTid, TilTid, Konto, Saldo FROM NYEbrukere"_qs),
        QStringList{u"+4790000001|+4791234567|?|Kari|NY|1/12/2026|3/12/2026|00|24|Gjest|0"_qs});
    EXPECT_EQ(world.queue(), QStringList());
    EXPECT_EQ(world.rows(u"SELECT Bruker FROM Katalog"_qs), QStringList{kUser});
}

TEST(LagreNyBruker, PeriodOnScreenKeepsItsNumberAndDoor)
{
    UsersWorld world;
    world.addWaiting(u"+4790009000"_qs, u"2/12/2026"_qs);
    UserEntry entry = world.guest();
    entry.id = world.database.single(u"SELECT ID FROM NYEbrukere"_qs);
    world.users.LagreNyBruker(entry);
    EXPECT_EQ(world.waiting(), QStringList{u"+4790000001|+4790009000|1/12/2026|NY"_qs});

    // The number that stands for no period on screen finds none, though one may bear it.
    world.database.look().run(u"UPDATE NYEbrukere SET ID = 9999"_qs);
    world.refresh();
    world.users.LagreNyBruker(world.guest());
    EXPECT_EQ(world.waiting().size(), 2);
}

TEST(Save, GoesByTheModeAndRefusesAWaitingPeriodForNoDoor)
{
    UsersWorld world;
    world.modem.pace.restart(60000ms);
    world.users.save(world.guest(), false);
    world.users.save(world.guest(), true);
    EXPECT_EQ(world.onDoors().size(), 1);
    EXPECT_EQ(world.waiting().size(), 1);
    EXPECT_EQ(world.modem.pace.interval(), 3000ms);

    world.database.look().run(u"DELETE FROM KEYTable"_qs);
    world.refresh();
    world.users.save(world.guest(u"+4790009000"_qs), true);
    EXPECT_EQ(world.waiting().size(), 1);
}

} // namespace
