#include "simulator/DoorUnit.h"
#include "ModemWorld.h"

namespace {

constexpr auto kNorwegian = DoorLanguage::Norwegian;
const QString kDoor = u"+4790000001"_qs;
const DoorPeriod kPeriod{QDate(2026, 12, 1), 0, QDate(2026, 12, 3), 24};
const DoorPeriod kOther{QDate(2027, 1, 5), 8, QDate(2027, 2, 5), 16};
const QByteArray kDates = "\nFRA : 01/12-2026 00:00\nTIL : 03/12-2026 24:00";

/// One unit, which holds 91234567 for another period and 92345678 with a balance of 3.
struct DoorWorld : ModemWorld {
    explicit DoorWorld(DoorLanguage language = kNorwegian, const QString &name = u"Hovedport"_qs)
        : door(network, kDoor, name, language)
    {
        door.seedUser(u"91234567"_qs, {kOther});
        door.seedUser(u"92345678"_qs, {3, true});
    }
    /// The unit's answer in raw codes; empty when it says nothing.
    QByteArray ask(const QByteArray &command)
    {
        received.clear();
        network.send(kStranger, kDoor, command);
        return delivered().chopped(received.isEmpty() ? 0 : 1);
    }
    DoorUnit door;
};

TEST(Door, SpeaksTheSentencesThatItsReadersKnow)
{
    const struct {
        DoorLanguage language;
        QByteArray added, exists, deleted, unknown, end;
    } tongues[] = {
        {kNorwegian, "er lagt til", "finnes allerede", "er slettet", "finnes ikke", "Slutt"},
        {DoorLanguage::Danish, "er opprettet i", "findes allerede", "er slettet", "findes ikke",
         "Slut"},
        {DoorLanguage::Swedish, "\x7br upplagt i", "finns redan", "\x7br borttagen", "finns inte",
         "Slut"},
    };
    const QByteArray start = "Hovedport\n93456789 ";
    for (const auto &words : tongues) {
        DoorWorld world(words.language);
        EXPECT_EQ(world.ask("I 93456789>26120100<26120324"), start + words.added + kDates);
        EXPECT_EQ(world.ask("I 93456789>26120100<26120324"), start + words.exists + kDates);
        EXPECT_EQ(world.ask("I 93456789*25"), start + words.exists + "\nSALDO: 25\n" + words.end);
        EXPECT_EQ(world.ask("U 93456789"), start + words.deleted);
        EXPECT_EQ(world.ask("U 93456789"), start + words.unknown);
    }
}

TEST(Door, ObeysEveryFormOfACommand)
{
    const QByteArray commands[][2] = {
        {"i 701234567>26120100<26120324", "Hovedport\n701234567 er lagt til" + kDates},
        {"I 93456789*-5", "Hovedport\n93456789 er lagt til\nSALDO: -5\nSlutt"},
        {"I 93456789* 25", "Hovedport\n93456789 er lagt til\nSALDO: 25\nSlutt"},
        {"I 1>26120100<26120324", "Hovedport \n1 er lagt til" + kDates},
        {"u 92345678", "Hovedport\n92345678 er slettet"},
        {"U 9123456789", "Hovedport\n9123456789 finnes ikke"},
    };
    for (const auto &[command, answer] : commands) {
        EXPECT_EQ(DoorWorld().ask(command), answer);
    }
}

TEST(Door, SaysAndDoesNothingToAnythingElse)
{
    DoorWorld world;
    const DoorUnit::Users before = world.door.users();
    for (const char *command :
         {"", "Hei, er du der?", "I 91234567", "I 91234567>26130100<26120324",
          "I 91234567>26120100<26120325", "I 91234567>26120100<261203",
          "I 91234567>26120100<2612032400", "I 9123456x*3", "U91234567", "\x01\x1b\xff"}) {
        EXPECT_EQ(world.ask(command), QByteArray()) << command;
    }
    EXPECT_EQ(world.door.users(), before);
}

TEST(Door, TakesNewRightsAndLosesNobodyButTheDeleted)
{
    DoorWorld world;
    for (const char *command : {"I 91234567>26120100<26120324", "I 94567890*1", "I 92345678*25",
                                "i 701234567*4", "U 94567890", "U 93456789"}) {
        world.ask(command);
    }
    const DoorUnit::Users expected{
        {u"91234567"_qs, {kPeriod}}, {u"92345678"_qs, {25}}, {u"701234567"_qs, {4, true}}};
    EXPECT_EQ(world.door.users(), expected);
}

TEST(DoorAnswer, CarriesTheMarkOfAnAdministratorUntilItIsDeleted)
{
    DoorWorld world;
    world.door.seedUser(u"91234567"_qs, {kOther, false, '2'});
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(world.ask("I 91234567>26120100<26120324"),
                  "Hovedport\n91234567 finnes allerede A-2" + kDates);
    }
    world.ask("U 91234567");
    EXPECT_EQ(world.ask("I 91234567>26120100<26120324"),
              "Hovedport\n91234567 er lagt til" + kDates);
}

// Readers take the first "/" and "-" of the text for those of a date, and step 13 characters back
// from the sentence: a name must not lead them astray.
TEST(DoorAnswer, KeepsMisleadingNamesFromItsReaders)
{
    const std::pair<QString, QByteArray> names[] = {
        {u"Nord-dør A/B: 2*"_qs, "Nord d\x0cr A B  2 "},
        {u"X"_qs, "X  "},
        {QString(), "   "},
        {QString(100, u'x'), QByteArray(20, 'x')},
    };
    for (const auto &[given, first] : names) {
        DoorWorld world(kNorwegian, given);
        EXPECT_EQ(world.ask("U 91234567"), first + "\n91234567 er slettet");
    }
}

TEST(DoorAnswer, FitsIntoOneMessageAtItsLongest)
{
    DoorWorld world(DoorLanguage::Swedish, QString(20, u'å'));
    world.door.seedUser(QString(20, u'9'), {kOther, false, '5'});
    const QByteArray answer = world.ask("I " + QByteArray(20, '9') + ">26120100<26120324");
    EXPECT_TRUE(answer.contains("A-5"));
    EXPECT_LE(answer.size(), 160);
}

TEST(DoorAnswer, ComesBehindTheUnitsOwnTimeAndIsBriefWhenTold)
{
    DoorWorld world;
    world.door.setAnswerDelay(10s);
    world.door.setAnswers(DoorUnit::Answers::Brief);
    world.network.send(kStranger, kDoor, "I 92345678*25");
    world.clock.run(13999ms);
    EXPECT_EQ(world.received, "");
    world.clock.run(1ms);
    EXPECT_EQ(world.received, "Hovedport\n92345678 finnes allerede|");
}

} // namespace
