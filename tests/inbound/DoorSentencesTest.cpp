#include "inbound/InboundWorld.h"

#include <gmock/gmock.h>

#include <span>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Rows = std::vector<std::string>;

const QString kDoor = QString::fromLatin1(InboundWorld::kDoor);
const QString kBackDoor = QString::fromLatin1(InboundWorld::kBackDoor);

/// What a door says of a number that nobody knows, and the row of TBLbrukere that comes of it,
/// without KeyNummer: KeyBruker|Status|Gyldig fra|FraTid|Gyldig til|TilTid|Konto|Saldo.
struct Sentence {
    const char *name;
    QByteArray body;
    std::string user;
};

// The number is stored with the blank that stands before the phrase.
const std::string kPlain = "+4791234567 |Aktiv |01/12/2026|00|31/12/2099|24|MobReg|0";

const Sentence kLanguages[] = {
    {"norwegianAdded", "Hovedport\n91234567 er lagt til", kPlain},
    {"norwegianExists", "Hovedport\n91234567 finnes allerede", kPlain},
    {"danishAdded", "Hovedport\n91234567 er opprettet i", kPlain},
    {"danishExists", "Hovedport\n91234567 findes allerede", kPlain},
    {"swedishAddedInRawLetters", "Hovedport\n91234567 {r upplagt i", kPlain},
    {"swedishExists", "Hovedport\n91234567 finns redan", kPlain},
    {"otherCase", "HOVEDPORT\n91234567 ER LAGT TIL", kPlain},
    {"fullNumber", "Hovedport\n+4791234567 er lagt til", kPlain},
    {"linesBehindThePhrase", "Hovedport\n91234567 er lagt til.\nHilsen", kPlain}};

const Sentence kMarks[] = {{"slotTwo", "Hovedport\n91234567 er lagt til A-2",
                            "+4791234567 |Aktiv A2|01/12/2026|00|31/12/2099|24|ADMIN-2|0"},
                           {"slotZeroIsNone", "Hovedport\n91234567 er lagt til A-0", kPlain},
                           {"slotOfALetter", "Hovedport\n91234567 er lagt til A-x",
                            "+4791234567 |Aktiv Ax|01/12/2026|00|31/12/2099|24|ADMIN-x|0"},
                           {"slotMissing", "Hovedport\n91234567 er lagt til A-",
                            "+4791234567 |Aktiv A|01/12/2026|00|31/12/2099|24|ADMIN-|0"},
                           {"markBeforeTheNumber", "Hytta-3 sier\n91234567 er lagt til",
                            "+4791234567 |Aktiv A3|01/12/2026|00|31/12/2099|24|ADMIN-3|0"}};

const Sentence kPeriods[] = {
    {"everything",
     "Hovedport\n91234567 er lagt til A-2\nFRA : 12/05-2004 08:00\n"
     "TIL : 31/12-2004 16:00\nSALDO: 100\nSlutt",
     "+4791234567 |Aktiv A2| 12 & DATOSKILLETEGN & 05 & DATOSKILLETEGN & 2004|08|"
     " 31 & DATOSKILLETEGN & 12 & DATOSKILLETEGN & 2004|16|Saldo| 100"},
    {"oneDigitEach", "Hovedport\n91234567 er lagt til\nFRA : 1/2-2004 8:00\nTIL : 3/4-2004 9:00",
     "+4791234567 |Aktiv | 1 & DATOSKILLETEGN & 2 & DATOSKILLETEGN & 2004|08|"
     " 3 & DATOSKILLETEGN & 4 & DATOSKILLETEGN & 2004|09|MobReg|0"},
    {"swedish", "Grind\n91234567 {r upplagt i\nFr\xE5n: 1/2-2004 8:00\nTill: 3/4-2004 10:00",
     "+4791234567 |Aktiv | 1 & DATOSKILLETEGN & 2 & DATOSKILLETEGN & 2004|08|"
     " 3 & DATOSKILLETEGN & 4 & DATOSKILLETEGN & 2004|10|MobReg|0"},
    {"endOnly", "Hovedport\n91234567 er lagt til\nTIL : 31/12-2004 16:00",
     "+4791234567 |Aktiv |01/12/2026|00|"
     " 31 & DATOSKILLETEGN & 12 & DATOSKILLETEGN & 2004|16|MobReg|0"},
    {"noDateBehindTheWord", "Hovedport\n91234567 er lagt til\nFRA : i morgen", kPlain},
    {"noHourBehindTheDate", "Hovedport\n91234567 er lagt til\nFRA : 12/05-2004",
     "+4791234567 |Aktiv | 12 & DATOSKILLETEGN & 05 & DATOSKILLETEGN & 2004|00|"
     "31/12/2099|24|MobReg|0"},
    // The dash of "A-0" stays in the text and stands before the slash: no date can be cut.
    {"dashOfSlotZeroSpoilsTheDate", "Hovedport\n91234567 er lagt til A-0\nFRA : 12/05-2004 08:00",
     "+4791234567 |Aktiv |01/12/2026| : 12/05-2004 08|31/12/2099|24|MobReg|0"}};

const Sentence kBalances[] = {{"lineBehind", "Hovedport\n91234567 er lagt til\nSALDO: 7\nSlutt",
                               "+4791234567 |Aktiv |01/12/2026|00|31/12/2099|24|Saldo| 7"},
                              {"lastLine", "Hovedport\n91234567 er lagt til\nSALDO: 7",
                               "+4791234567 |Aktiv |01/12/2026|00|31/12/2099|24|Saldo|0"}};

const Sentence kHostile[] = {
    {"phraseTooEarly", "91234567 er lagt til", "+47|Aktiv |01/12/2026|00|31/12/2099|24|MobReg|0"},
    {"phraseAlone", "er lagt til", "+47|Aktiv |01/12/2026|00|31/12/2099|24|MobReg|0"},
    // The line end stands one character too far back, so all before the phrase is the number.
    {"elevenDigits", "Hovedport\n+46701234567 er lagt til",
     "+47Hovedport\n+46701234567 |Aktiv |01/12/2026|00|31/12/2099|24|MobReg|0"},
    {"noLineEnd", "Hovedport 91234567 er lagt til",
     "+47Hovedport 91234567 |Aktiv |01/12/2026|00|31/12/2099|24|MobReg|0"},
    {"lineEndBehindThePhrase", "Hovedport 91234567 er lagt til\nSlutt",
     "+47|Aktiv |01/12/2026|00|31/12/2099|24|MobReg|0"},
    {"quote", "Hovedport\nO'Brien er lagt til",
     "+47O'Brien |Aktiv |01/12/2026|00|31/12/2099|24|MobReg|0"},
    {"sql", "Port\n';DELETE-- er lagt til",
     "+47';DELETE-- |Aktiv |01/12/2026|00|31/12/2099|24|MobReg|0"}};

void makesTheRows(std::span<const Sentence> sentences)
{
    InboundWorld world;
    for (const Sentence &sentence : sentences) {
        SCOPED_TRACE(sentence.name);
        world.empty();
        world.doorSays(sentence.body);
        const std::string number = sentence.user.substr(0, sentence.user.find('|'));
        const std::string rest = sentence.user.substr(number.size());
        EXPECT_THAT(world.users(), ElementsAre(number + '|' + InboundWorld::kDoor + rest));
        EXPECT_THAT(world.persons(), ElementsAre(number + '|' + number.substr(3) + "|?|?"));
        EXPECT_EQ(world.filed().size(), 1U);
    }
}

TEST(AddedSentence, IsKnownInThreeLanguages)
{
    makesTheRows(kLanguages);
}

TEST(AddedSentence, MayMarkAnAdministrator)
{
    makesTheRows(kMarks);
}

TEST(AddedSentence, MayTellThePeriod)
{
    makesTheRows(kPeriods);
}

TEST(AddedSentence, MayTellTheBalance)
{
    makesTheRows(kBalances);
}

TEST(AddedSentence, ThatIsBrokenStillMakesARow)
{
    makesTheRows(kHostile);
}

struct DateForm {
    const char *name;
    QString format;
    std::string period;
};

const DateForm kDateForms[] = {{"slash", u"dd/MM/yyyy"_qs, "01/12/2026|31/12/2099"},
                               {"point", u"dd.MM.yyyy"_qs, "01.12.2026|31.12.2099"},
                               {"anyOther", u"yyyy-MM-dd"_qs, "2026-12-01|31.12.2099"}};

TEST(SystemDate, ShapesThePeriodThatTheDoorLeavesOpen)
{
    InboundWorld world;
    for (const DateForm &form : kDateForms) {
        SCOPED_TRACE(form.name);
        world.empty();
        world.host.format = form.format;
        world.doorSays("Hovedport\n91234567 er lagt til");
        EXPECT_THAT(world.rows(u"SELECT [Gyldig fra], [Gyldig til] FROM TBLbrukere"_qs),
                    ElementsAre(form.period));
    }
}

/// The same for a user who is on the door, with account "Gjest" and balance 5.
const Sentence kOfKnownUsers[] = {{"balanceGoesBackToZero", "Hovedport\n91234567 finnes allerede",
                                   "Aktiv |01/12/2026|00|31/12/2099|24|Gjest|0"},
                                  {"markLeavesTheAccount", "Hovedport\n91234567 er lagt til A-3",
                                   "Aktiv A3|01/12/2026|00|31/12/2099|24|Gjest|0"},
                                  {"balanceTakesTheAccount",
                                   "Hovedport\n91234567 er lagt til\nSALDO: 7\nSlutt",
                                   "Aktiv |01/12/2026|00|31/12/2099|24|Saldo| 7"}};

TEST(KnownUser, IsRenewedOnThisDoorOnly)
{
    InboundWorld world;
    for (const Sentence &sentence : kOfKnownUsers) {
        SCOPED_TRACE(sentence.name);
        world.empty();
        world.person(u"+4791234567"_qs, u"Berg"_qs, u"Anne"_qs);
        for (const QString &door : {kBackDoor, kDoor, u"+4790000003"_qs}) {
            world.user(u"+4791234567"_qs, door);
        }
        const Rows before = world.users();
        world.doorSays(sentence.body);
        world.doorSays(sentence.body);
        const std::string key = "+4791234567|" + std::string(InboundWorld::kDoor) + '|';
        EXPECT_THAT(world.users(), ElementsAre(before[0], key + sentence.user, before[2]));
        EXPECT_THAT(world.persons(), ElementsAre("+4791234567|91234567|Berg|Anne"));
        EXPECT_EQ(world.filed().size(), 2U);
    }
}

TEST(UserAdded, SecondReplyOnAnUnknownNumberMakesNoSecondRow)
{
    InboundWorld world;
    world.doorSays("Hovedport\n91234567 er lagt til");
    const Rows once = world.users();
    world.doorSays("Hovedport\n91234567 finnes allerede");
    EXPECT_EQ(world.users(), once);
    EXPECT_EQ(world.persons().size(), 1U);
}

TEST(UserAdded, NumberWithAQuoteReachesNoOtherRow)
{
    InboundWorld world;
    world.person(u"+4791234567"_qs, u"Berg"_qs, u"Anne"_qs);
    world.user(u"+4791234567"_qs, kDoor);
    const Rows before = world.users();
    world.doorSays("Hovedport\n9123'567 er lagt til");
    ASSERT_EQ(world.users().size(), 2U);
    EXPECT_EQ(world.users()[0], before[0]);
    world.doorSays("Hovedport\n9123'567 er slettet");
    EXPECT_EQ(world.users().size(), 2U) << "what cannot be looked for is not deleted";
}

TEST(UserAdded, UnknownDoorIsBelieved)
{
    InboundWorld world;
    world.doorSays("Bakport\n91234567 er lagt til", "+4799999999");
    EXPECT_THAT(world.users(),
                ElementsAre("+4791234567 |+4799999999|Aktiv |01/12/2026|00|31/12/2099|24|"
                            "MobReg|0"));
}

TEST(UserAdded, PrefixFollowsTheCountry)
{
    InboundWorld world;
    world.module.CountryCode = u"46"_qs;
    world.doorSays("Grind\n701234567 {r upplagt i");
    EXPECT_THAT(world.persons(), ElementsAre("+46701234567 |701234567 |?|?"));
}

struct Removal {
    const char *name;
    QByteArray body;
    bool removed;
};

const Removal kRemovals[] = {
    {"norwegianDeleted", "Hovedport\n91234567 er slettet", true},
    {"norwegianUnknown", "Hovedport\n91234567 finnes ikke", true},
    {"danishUnknown", "Hovedport\n91234567 findes ikke", true},
    {"swedishDeletedInRawLetters", "Hovedport\n91234567 {r borttagen", true},
    {"swedishUnknown", "Hovedport\n91234567 finns inte", true},
    {"fullNumber", "Hovedport\n+4791234567 er slettet", true},
    {"otherNumber", "Hovedport\n94444444 er slettet", false},
    {"phraseTooEarly", "91234567 er slettet", false},
    {"allOfThem", "Hovedport\n% er slettet", false},
    {"quote", "Hovedport\n' OR '1'='1 er slettet", false},
    {"twoPhrases", "Port\n91234567 er slettet, finnes ikke", false}};

TEST(DeletedSentence, RemovesTheUserFromThisDoorOnly)
{
    InboundWorld world;
    for (const Removal &removal : kRemovals) {
        SCOPED_TRACE(removal.name);
        world.empty();
        world.person(u"+4791234567"_qs, u"Berg"_qs, u"Anne"_qs);
        for (const QString &number : {u"+4792222222"_qs, u"+4791234567"_qs, u"+4793333333"_qs}) {
            world.user(number, kBackDoor);
            world.user(number, kDoor);
        }
        Rows expected = world.users();
        world.doorSays(removal.body);
        if (removal.removed) {
            expected.erase(expected.begin() + 3);
        }
        EXPECT_EQ(world.users(), expected);
        EXPECT_EQ(world.persons().size(), 1U) << "the catalogue neither loses nor gains anybody";
    }
}

TEST(UserDeleted, NumberOutsideTheCatalogueIsTriedWithThePrefix)
{
    InboundWorld world;
    world.user(u"+4791234567"_qs, kDoor);
    world.doorSays("Hovedport\n91234567 er slettet");
    EXPECT_THAT(world.users(), IsEmpty());
    EXPECT_THAT(world.persons(), IsEmpty());
}

TEST(Families, TextOfTwoFamiliesIsActedUponByBoth)
{
    InboundWorld world;
    world.doorSays("Hovedport\n91234567 er lagt til\n91234567 er slettet");
    EXPECT_THAT(world.users(), IsEmpty());
    EXPECT_THAT(world.persons(), ElementsAre("+4791234567 |91234567 |?|?"));
}

TEST(Families, FreeTextOfAPersonIsFiledAndNothingElse)
{
    InboundWorld world;
    world.doorSays("Hei, kan du slippe meg inn?", "+4791234567");
    EXPECT_THAT(world.users(), IsEmpty());
    EXPECT_THAT(world.persons(), IsEmpty());
    EXPECT_EQ(world.filed().size(), 1U);
}

} // namespace
