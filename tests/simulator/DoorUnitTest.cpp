#include "ModemWorld.h"
#include "simulator/GsmAlphabet.h"

#include <gtest/gtest.h>

namespace {

const QString kAsker = QStringLiteral("+4799000001");
const QString kDoor = QStringLiteral("+4790000001");
const DoorPeriod kPeriod{QDate(2026, 12, 1), 0, QDate(2026, 12, 3), 24};
const DoorPeriod kOther{QDate(2027, 1, 5), 8, QDate(2027, 2, 5), 16};
const QByteArray kDates = "\nFRA : 01/12-2026 00:00\nTIL : 03/12-2026 24:00";

/// One unit, which holds 91234567 for another period and 92345678 with a balance of 3.
struct DoorWorld : ModemWorld {
    explicit DoorWorld(DoorLanguage language = DoorLanguage::Norwegian,
                       const QString &name = QStringLiteral("Hovedport"))
        : door(network, kDoor, name, language)
    {
        addPhone(kAsker);
        door.seedUser(QStringLiteral("91234567"), {kOther});
        door.seedUser(QStringLiteral("92345678"), {3, true});
    }
    /// The unit's answer in raw codes; empty when it says nothing.
    QByteArray ask(const QByteArray &command)
    {
        received.clear();
        network.send(kAsker, kDoor, command);
        clock.run(1h);
        EXPECT_LE(received.size(), 1u);
        return received.empty() ? QByteArray() : received[0].text;
    }
    DoorUnit door;
};

struct Exchange {
    const char *name;
    DoorLanguage language;
    QByteArray command;
    QByteArray answer;
};

void PrintTo(const Exchange &exchange, std::ostream *out)
{
    *out << exchange.name;
}

class Door : public testing::TestWithParam<Exchange> {};

TEST_P(Door, AnswersInTheFormThatItsReadersKnow)
{
    DoorWorld world(GetParam().language);
    EXPECT_EQ(world.ask(GetParam().command), GetParam().answer);
}

constexpr auto kNo = DoorLanguage::Norwegian;
constexpr auto kDa = DoorLanguage::Danish;
constexpr auto kSv = DoorLanguage::Swedish;

INSTANTIATE_TEST_SUITE_P(
    Registers, Door,
    testing::Values(Exchange{"added_no", kNo, "I 93456789>26120100<26120324",
                             "Hovedport\n93456789 er lagt til" + kDates},
                    Exchange{"added_da", kDa, "I 93456789>26120100<26120324",
                             "Hovedport\n93456789 er opprettet i" + kDates},
                    Exchange{"added_sv", kSv, "I 93456789>26120100<26120324",
                             "Hovedport\n93456789 \x7br upplagt i" + kDates},
                    Exchange{"exists_no", kNo, "I 91234567>26120100<26120324",
                             "Hovedport\n91234567 finnes allerede" + kDates},
                    Exchange{"exists_da", kDa, "I 91234567>26120100<26120324",
                             "Hovedport\n91234567 findes allerede" + kDates},
                    Exchange{"exists_sv", kSv, "I 91234567>26120100<26120324",
                             "Hovedport\n91234567 finns redan" + kDates},
                    Exchange{"foreign", kNo, "i 701234567>26120100<26120324",
                             "Hovedport\n701234567 er lagt til" + kDates},
                    Exchange{"balance", kNo, "I 93456789*25",
                             "Hovedport\n93456789 er lagt til\nSALDO: 25\nSlutt"},
                    Exchange{"balance_sv", kSv, "I 93456789*25",
                             "Hovedport\n93456789 \x7br upplagt i\nSALDO: 25\nSlut"},
                    Exchange{"balanceBelowZero", kNo, "I 93456789*-5",
                             "Hovedport\n93456789 er lagt til\nSALDO: -5\nSlutt"},
                    Exchange{"balanceWithABlank", kNo, "I 93456789* 25",
                             "Hovedport\n93456789 er lagt til\nSALDO: 25\nSlutt"},
                    Exchange{"shortNumber", kNo, "I 1>26120100<26120324",
                             "Hovedport \n1 er lagt til" + kDates}),
    [](const auto &param) { return param.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Deletes, Door,
    testing::Values(Exchange{"deleted_no", kNo, "U 91234567", "Hovedport\n91234567 er slettet"},
                    Exchange{"deleted_da", kDa, "U 91234567", "Hovedport\n91234567 er slettet"},
                    Exchange{"deleted_sv", kSv, "U 91234567",
                             "Hovedport\n91234567 \x7br borttagen"},
                    Exchange{"unknown_no", kNo, "U 93456789", "Hovedport\n93456789 finnes ikke"},
                    Exchange{"unknown_da", kDa, "U 93456789", "Hovedport\n93456789 findes ikke"},
                    Exchange{"unknown_sv", kSv, "U 93456789", "Hovedport\n93456789 finns inte"},
                    Exchange{"foreignDelete", kNo, "u 92345678", "Hovedport\n92345678 er slettet"},
                    Exchange{"longerNumberIsAnother", kNo, "U 9123456789",
                             "Hovedport\n9123456789 finnes ikke"}),
    [](const auto &param) { return param.param.name; });

INSTANTIATE_TEST_SUITE_P(
    SaysNothing, Door,
    testing::Values(Exchange{"freeText", kNo, "Hei, er du der?", ""},
                    Exchange{"nothing", kNo, "", ""}, Exchange{"bareNumber", kNo, "I 91234567", ""},
                    Exchange{"noSuchDay", kNo, "I 91234567>26130100<26120324", ""},
                    Exchange{"noSuchHour", kNo, "I 91234567>26120100<26120325", ""},
                    Exchange{"cutShort", kNo, "I 91234567>26120100<261203", ""},
                    Exchange{"moreBehind", kNo, "I 91234567>26120100<2612032400", ""},
                    Exchange{"letters", kNo, "I 9123456x*3", ""},
                    Exchange{"noBlank", kNo, "U91234567", ""},
                    Exchange{"rawRubbish", kNo, QByteArray("\x00\x1b\xff", 3), ""}),
    [](const auto &param) { return param.param.name; });

TEST(DoorMemory, TakesTheNewRightOfAUserThatItHas)
{
    DoorWorld world;
    world.ask("I 91234567>26120100<26120324");
    world.ask("I 92345678*25");
    world.ask("i 701234567*4");
    const DoorUnit::Users expected{{QStringLiteral("91234567"), {kPeriod}},
                                   {QStringLiteral("92345678"), {25}},
                                   {QStringLiteral("701234567"), {4, true}}};
    EXPECT_EQ(world.door.users(), expected);
}

TEST(DoorMemory, LosesNobodyButTheDeleted)
{
    DoorWorld world;
    world.ask("U 91234567");
    world.ask("U 93456789");
    world.ask("nonsense");
    EXPECT_EQ(world.door.users(), (DoorUnit::Users{{QStringLiteral("92345678"), {3, true}}}));
}

// Behind a mark the readers keep 99 characters, and "A-0" is none: it would stand in the way of
// the dates.
TEST(DoorAnswer, CarriesTheMarkOfAnAdministrator)
{
    DoorWorld world;
    world.door.setMark(QStringLiteral("91234567"), '2');
    EXPECT_EQ(world.ask("I 91234567>26120100<26120324"),
              "Hovedport\n91234567 finnes allerede A-2" + kDates);
    world.door.setMark(QStringLiteral("91234567"), '0');
    EXPECT_EQ(world.ask("I 91234567>26120100<26120324"),
              "Hovedport\n91234567 finnes allerede" + kDates);
}

TEST(DoorAnswer, IsBriefWhenTold)
{
    DoorWorld world;
    world.door.setAnswers(DoorUnit::Answers::Brief);
    EXPECT_EQ(world.ask("I 92345678*25"), "Hovedport\n92345678 finnes allerede");
}

// Readers take the first "/" and "-" of the text for those of a date, and step 13 characters back
// from the sentence: a name must not lead them astray.
TEST(DoorAnswer, KeepsMisleadingNamesFromItsReaders)
{
    struct Name {
        QString given;
        QByteArray first;
    };
    const Name names[] = {{QStringLiteral("Nord-dør A/B: 2*"), "Nord d\x0cr A B  2 "},
                          {QStringLiteral("X"), "X  "},
                          {QString(), "   "},
                          {QString(100, u'x'), QByteArray(20, 'x')}};
    for (const Name &name : names) {
        DoorWorld world(DoorLanguage::Norwegian, name.given);
        const QByteArray answer = world.ask("U 91234567");
        EXPECT_EQ(answer, name.first + "\n91234567 er slettet");
        EXPECT_GE(answer.indexOf("er slettet"), 13);
    }
}

TEST(DoorAnswer, FitsIntoOneMessageAtItsLongest)
{
    DoorWorld world(DoorLanguage::Swedish, QString(20, u'å'));
    world.door.setMark(QString(20, u'9'), '5');
    const QByteArray answer = world.ask("I " + QByteArray(20, '9') + ">26120100<26120324");
    EXPECT_FALSE(answer.isEmpty());
    EXPECT_LE(answer.size(), 160);
}

TEST(DoorAnswer, ComesBehindTheUnitsOwnTime)
{
    DoorWorld world;
    world.door.setAnswerDelay(10s);
    world.network.send(kAsker, kDoor, "U 91234567");
    world.clock.run(13999ms);
    EXPECT_TRUE(world.received.empty());
    world.clock.run(1ms);
    ASSERT_EQ(world.received.size(), 1u);
    EXPECT_EQ(world.received[0].from, kDoor);
}

} // namespace
