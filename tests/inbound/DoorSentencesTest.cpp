#include "inbound/InboundWorld.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Rows = std::vector<std::string>;

const QString kDoor = QString::fromLatin1(InboundWorld::kDoor);
const QString kBackDoor = QString::fromLatin1(InboundWorld::kBackDoor);

/// What a door says of a number that nobody knows, and the row of TBLbrukere that comes of it,
/// without KeyNummer: KeyBruker|Status|Gyldig fra|FraTid|Gyldig til|TilTid|Konto|Saldo.
struct Sentence {
    QByteArray body;
    std::string user;
};

const QByteArray kSaid = "Hovedport\n91234567 er lagt til";
const std::string kOpen = "01/12/2026|00|31/12/2099|24|";
const std::string kOther = "|Aktiv |" + kOpen + "MobReg|0";
// The number is stored with the blank that stands before the phrase.
const std::string kUser = "+4791234567 ";

const Sentence kAdded[] = {
    {kSaid, kUser + kOther},
    {"Hovedport\n91234567 finnes allerede", kUser + kOther},
    {"Hovedport\n91234567 er opprettet i", kUser + kOther},
    {"Hovedport\n91234567 findes allerede", kUser + kOther},
    {"Hovedport\n91234567 {r upplagt i", kUser + kOther},
    {"Hovedport\n91234567 finns redan", kUser + kOther},
    {"HOVEDPORT\n91234567 ER LAGT TIL", kUser + kOther},
    {"Hovedport\n+4791234567 er lagt til", kUser + kOther},
    {kSaid + ".\nHilsen", kUser + kOther},
    // Administrators.
    {kSaid + " A-2", kUser + "|Aktiv A2|" + kOpen + "ADMIN-2|0"},
    {kSaid + " A-0", kUser + kOther},
    {kSaid + " A-x", kUser + "|Aktiv Ax|" + kOpen + "ADMIN-x|0"},
    {kSaid + " A-", kUser + "|Aktiv A|" + kOpen + "ADMIN-|0"},
    {"Hytta-3 sier\n91234567 er lagt til", kUser + "|Aktiv A3|" + kOpen + "ADMIN-3|0"},
    // Periods.
    {kSaid + " A-2\nFRA : 12/05-2004 08:00\nTIL : 31/12-2004 16:00\nSALDO: 100\nSlutt",
     kUser + "|Aktiv A2| 12 & DATOSKILLETEGN & 05 & DATOSKILLETEGN & 2004|08|"
             " 31 & DATOSKILLETEGN & 12 & DATOSKILLETEGN & 2004|16|Saldo| 100"},
    {"Grind\n91234567 {r upplagt i\nFr\xE5n: 1/2-2004 8:00\nTill: 3/4-2004 10:00",
     kUser + "|Aktiv | 1 & DATOSKILLETEGN & 2 & DATOSKILLETEGN & 2004|08|"
             " 3 & DATOSKILLETEGN & 4 & DATOSKILLETEGN & 2004|10|MobReg|0"},
    {kSaid + "\nTIL : 31/12-2004 16:00",
     kUser + "|Aktiv |01/12/2026|00| 31 & DATOSKILLETEGN & 12 & DATOSKILLETEGN & 2004|16|MobReg|0"},
    {kSaid + "\nFRA : i morgen", kUser + kOther},
    {kSaid + "\nFRA : 12/05-2004",
     kUser + "|Aktiv | 12 & DATOSKILLETEGN & 05 & DATOSKILLETEGN & 2004|00|31/12/2099|24|MobReg|0"},
    // The dash of "A-0" stays in the text and stands before the slash: no date can be cut.
    {kSaid + " A-0\nFRA : 12/05-2004 08:00",
     kUser + "|Aktiv |01/12/2026| : 12/05-2004 08|31/12/2099|24|MobReg|0"},
    // Balances: the last line is lost.
    {kSaid + "\nSALDO: 7\nSlutt", kUser + "|Aktiv |" + kOpen + "Saldo| 7"},
    {kSaid + "\nSALDO: 7", kUser + "|Aktiv |" + kOpen + "Saldo|0"},
    // Broken ones.
    {"91234567 er lagt til", "+47" + kOther},
    // The line end stands one character too far back, so all before the phrase is the number.
    {"Hovedport\n+46701234567 er lagt til", "+47Hovedport\n+46701234567 " + kOther},
    {"Hovedport 91234567 er lagt til", "+47Hovedport 91234567 " + kOther},
    {"Hovedport 91234567 er lagt til\nSlutt", "+47" + kOther},
    {"Hovedport\nO'Brien er lagt til", "+47O'Brien " + kOther},
    {"Port\n';DELETE-- er lagt til", "+47';DELETE-- " + kOther}};

TEST(AddedSentence, MakesItsRowsBrokenOrNot)
{
    InboundWorld world;
    for (const Sentence &sentence : kAdded) {
        SCOPED_TRACE(sentence.body.constData());
        world.empty();
        world.doorSays(sentence.body);
        const std::string number = sentence.user.substr(0, sentence.user.find('|'));
        const std::string rest = sentence.user.substr(number.size());
        EXPECT_THAT(world.users(), ElementsAre(number + '|' + InboundWorld::kDoor + rest));
        EXPECT_THAT(world.persons(), ElementsAre(number + '|' + number.substr(3) + "|?|?"));
    }
}

TEST(AddedSentence, TakesTheSystemsDateForAnOpenPeriod)
{
    InboundWorld world;
    for (const auto &[format, period] : {std::pair{u"dd.MM.yyyy"_qs, "01.12.2026|31.12.2099"},
                                         std::pair{u"yyyy-MM-dd"_qs, "2026-12-01|31.12.2099"}}) {
        world.empty();
        world.host.format = format;
        world.doorSays("Hovedport\n91234567 er lagt til");
        EXPECT_THAT(world.rows(u"SELECT [Gyldig fra], [Gyldig til] FROM TBLbrukere"_qs),
                    ElementsAre(period));
    }
}

/// The same for a user who is on the door, with account "Gjest" and balance 5.
const Sentence kOfKnownUsers[] = {
    {"Hovedport\n91234567 finnes allerede", "Aktiv |" + kOpen + "Gjest|0"},
    {kSaid + " A-3", "Aktiv A3|" + kOpen + "Gjest|0"},
    {kSaid + "\nSALDO: 7\nSlutt", "Aktiv |" + kOpen + "Saldo| 7"}};

TEST(KnownUser, IsRenewedOnThisDoorOnly)
{
    InboundWorld world;
    for (const Sentence &sentence : kOfKnownUsers) {
        SCOPED_TRACE(sentence.body.constData());
        world.empty();
        world.inCatalogue(u"+4791234567"_qs, u"Berg"_qs, u"Anne"_qs);
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

TEST(UserAdded, NumberWithAQuoteReachesNoOtherRow)
{
    InboundWorld world;
    world.inCatalogue(u"+4791234567"_qs, u"Berg"_qs, u"Anne"_qs);
    world.user(u"+4791234567"_qs, kDoor);
    const Rows before = world.users();
    world.doorSays("Hovedport\n9123'567 er lagt til");
    ASSERT_EQ(world.users().size(), 2U);
    EXPECT_EQ(world.users()[0], before[0]);
    world.doorSays("Hovedport\n9123'567 er slettet");
    EXPECT_EQ(world.users().size(), 2U) << "what cannot be looked for is not deleted";
}

TEST(UserAdded, UnknownDoorIsBelievedAndThePrefixFollowsTheCountry)
{
    InboundWorld world;
    world.module.CountryCode = u"46"_qs;
    world.doorSays("Grind\n701234567 {r upplagt i", "+4699999999");
    EXPECT_THAT(world.persons(), ElementsAre("+46701234567 |701234567 |?|?"));
    EXPECT_THAT(world.rows(u"SELECT KeyNummer FROM TBLbrukere"_qs), ElementsAre("+4699999999"));
}

struct Removal {
    QByteArray body;
    bool removed;
};

const Removal kRemovals[] = {{"Hovedport\n91234567 er slettet", true},
                             {"Hovedport\n91234567 finnes ikke", true},
                             {"Hovedport\n91234567 findes ikke", true},
                             {"Hovedport\n91234567 {r borttagen", true},
                             {"Hovedport\n91234567 finns inte", true},
                             {"Hovedport\n+4791234567 er slettet", true},
                             {"Hovedport\n94444444 er slettet", false},
                             {"91234567 er slettet", false},
                             {"Hovedport\n% er slettet", false},
                             {"Hovedport\n' OR '1'='1 er slettet", false},
                             {"Port\n91234567 er slettet, finnes ikke", false}};

TEST(DeletedSentence, RemovesTheUserFromThisDoorOnly)
{
    InboundWorld world;
    for (const Removal &removal : kRemovals) {
        SCOPED_TRACE(removal.body.constData());
        world.empty();
        world.inCatalogue(u"+4791234567"_qs, u"Berg"_qs, u"Anne"_qs);
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

TEST(DeletedSentence, OfANumberOutsideTheCatalogueIsTriedWithThePrefix)
{
    InboundWorld world;
    world.user(u"+4791234567"_qs, kDoor);
    world.doorSays("Hovedport\n91234567 er slettet");
    EXPECT_THAT(world.users(), IsEmpty());
    EXPECT_THAT(world.persons(), IsEmpty());
    // A text of both families is acted upon by both.
    world.doorSays(kSaid + "\n91234567 er slettet");
    EXPECT_THAT(world.users(), IsEmpty());
    EXPECT_THAT(world.persons(), ElementsAre("+4791234567 |91234567 |?|?"));
}

} // namespace
