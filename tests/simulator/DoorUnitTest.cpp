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
        clock.run(2min); // a hundred records of a log take a minute
        return received.chopped(received.isEmpty() ? 0 : 1);
    }
    DoorUnit door;
};

struct Door : testing::Test, DoorWorld {};
using DoorAnswer = Door;

TEST_F(Door, SpeaksTheSentencesThatItsReadersKnow)
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

TEST_F(Door, ObeysEveryFormOfACommand)
{
    const QByteArray commands[][2] = {
        {"i 701234567>26120100<26120324", "Hovedport\n701234567 er lagt til" + kDates},
        {"I 93456789*-5", "Hovedport\n93456789 er lagt til\nSALDO: -5\nSlutt"},
        {"I 93456789* 25", "Hovedport\n93456789 er lagt til\nSALDO: 25\nSlutt"},
        {"I 93456789 >26120100<26120324 ", "Hovedport\n93456789 er lagt til" + kDates},
        {"I 1>26120100<26120324", "Hovedport \n1 er lagt til" + kDates},
        {"u 92345678", "Hovedport\n92345678 er slettet"},
        {"U 92345678 ", "Hovedport\n92345678 er slettet"},
        {"K", "*91234567\n*92345678\n"},
        {"r5", "Ingen logg"},
        {"U 9123456789", "Hovedport\n9123456789 finnes ikke"},
    };
    for (const auto &[command, answer] : commands) {
        EXPECT_EQ(DoorWorld().ask(command), answer);
    }
}

TEST_F(Door, SaysAndDoesNothingToAnythingElse)
{
    const DoorUnit::Users before = door.users();
    for (const char *command :
         {"", "Hei, er du der?", "I 91234567", "I 91234567>26130100<26120324",
          "I 91234567>26120100<26120325", "I 91234567>26120100<261203",
          "I 91234567>26120100<2612032400", "I 9123456x*3", "U91234567", "\x01\x1b\xff",
          // Out of range or too long.
          "A0 91234567", "A8 91234567", "A1 9123456", "A1 9123456789", "A1 +4791234567",
          "A6 4790000001", "A6 +4790000001234", "A7 07091525", "A7 070915", "A7 070915171", "V9",
          "V", "V10", "P 0", "P 123456", "P -1", "P x", "P ", "r1", "r20", "r1000", "r", "T0 x",
          "T7 x", "T6 1234567890123456", "B !123456789012345678901",
          "T1 123456789012345678901234567890123456789012345678901",
          // A mode's period of the other type, or none.
          "O 07:00-16:00*5", "O 24-16*5", "O 7-16*5", "O 07-16*8", "O 07-16*0", "O 07-16", "O *5",
          "N 07-16*5", "O 07-16*5 x",
          // Another case, or another number of blanks.
          "k", "R5", "ar", "Ar", "a1 91234567", "b !x", "v1", "n", "l", "o", "p 5", "t1 x", "A1",
          "A191234567", "A1  91234567", "AR ", " AR", "K ", "r5 ", "T1", "Vx", " N", "??"}) {
        EXPECT_EQ(ask(command), QByteArray()) << command;
    }
    EXPECT_EQ(door.users(), before);
    EXPECT_EQ(door.settings(), DoorWorld().door.settings());
}

TEST_F(Door, TakesNewRightsAndLosesNobodyButTheDeleted)
{
    for (const char *command : {"I 91234567>26120100<26120324", "I 94567890*1", "I 92345678*25",
                                "i 701234567*4", "U 94567890", "U 93456789"}) {
        ask(command);
    }
    const DoorUnit::Users expected{
        {u"91234567"_qs, {kPeriod}}, {u"92345678"_qs, {25}}, {u"701234567"_qs, {4, true}}};
    EXPECT_EQ(door.users(), expected);
}

TEST_F(Door, KeepsWhatItIsTold)
{
    const struct {
        const char *command;
        void (*expect)(DoorSettings &settings);
        DoorType type = DoorType::Type310;
    } rows[] = {
        {"A6 90000001", [](auto &is) { is.ownNumber = u"90000001"_qs; }},
        {"A6 +4790000001", [](auto &is) { is.ownNumber = u"+4790000001"_qs; }},
        {"A6 ", [](auto &is) { is.ownNumber = u"99999999"_qs; }},
        {"A5 912345678", [](auto &is) { is.assistants[4] = u"912345678"_qs; }},
        {"A1 ", [](auto &is) { is.assistants[0].clear(); }},
        {"A7 07091524", [](auto &is) { is.hours = u"07091524"_qs; }},
        {"B !Bakd\x0cr", [](auto &is) { is.name = u"Bakdør"_qs; }},
        {"B !!A B", [](auto &is) { is.name = u"!A B"_qs; }},
        {"B Garasje", [](auto &is) { is.name = u"Garasje"_qs; }},
        {"B !", [](auto &is) { is.name.clear(); }},
        {"V0", [](auto &is) { is.alarmFunction = 0; }},
        {"V8", [](auto &is) { is.alarmFunction = 8; }},
        {"L", [](auto &is) { is.mode = u"L"_qs; }},
        {"O", [](auto &is) { is.mode = u"O"_qs; }, DoorType::Mk},
        {"N", [](auto &is) { is.mode = u"N"_qs; }},
        {"O 07-16*5", [](auto &is) { is.mode = u"O 07-16*5"_qs; }},
        {"O 23:59-00:00*1", [](auto &is) { is.mode = u"O 23:59-00:00*1"_qs; }, DoorType::Mk},
        {"O 07-16*5", [](auto &) {}, DoorType::Mk},
        {"O", [](auto &) {}, DoorType::Argon},
        {"V1", [](auto &) {}, DoorType::Argon},
        {"A7 00000000", [](auto &) {}, DoorType::Argon},
        {"K", [](auto &) {}, DoorType::Argon},
        {"P 99999", [](auto &is) { is.pulse = 99999; }, DoorType::Argon},
        {"P 05", [](auto &is) { is.pulse = 5; }},
        {"T1 Velkommen \x09", [](auto &is) { is.texts[0] = u"Velkommen Ç"_qs; }},
        {"T5 12345678901234567890123456789012345678901234567890",
         [](auto &is) { is.texts[4] = u"1234567890"_qs.repeated(5); }},
        {"T6 123456789012345", [](auto &is) { is.texts[5] = u"123456789012345"_qs; }},
        {"T6 ", [](auto &is) { is.texts[5].clear(); }},
        {"AR",
         [](auto &is) {
             is.administrator.clear();
             is.handedOn = true;
         }},
        {"?",
         [](auto &is) {
             is.administrator = kStranger;
             is.handedOn = false;
         }},
    };
    for (const auto &row : rows) {
        DoorSettings expected = door.settings();
        row.expect(expected);
        door.setType(row.type);
        const QByteArray answer = ask(row.command);
        EXPECT_EQ(door.settings(), expected) << row.command;
        // Those that a report shows are answered by one, the rest not at all.
        const bool isReported = strchr("AB?", row.command[0]) != nullptr && row.command[1] != '7';
        EXPECT_EQ(answer.isEmpty(), !isReported) << row.command << answer.constData();
    }
    EXPECT_TRUE(ask("U 91234567").startsWith("   \n")) << "the name of all answers";
}

TEST_F(Door, HandsItsAdministratorsPlaceOn)
{
    const std::pair<DoorLanguage, QByteArray> tongues[] = {
        {kNorwegian, "Neste som sender SMS blir ADMIN."},
        {DoorLanguage::Danish, "Neste som sender SMS bliver ADMIN."},
        {DoorLanguage::Swedish, "N\x7bsta som s\x7bnder SMS blir ADMIN."},
    };
    const QByteArray welcome = "Hovedport\nVelkommen ADMIN.";
    for (const auto &[language, sentence] : tongues) {
        DoorWorld world(language);
        EXPECT_EQ(world.ask("Hei"), "") << "nobody has handed it on";
        EXPECT_EQ(world.ask("?"), welcome);
        EXPECT_EQ(world.ask("AR"), "Hovedport\n" + sentence);
        EXPECT_EQ(world.ask("?"), welcome) << "and no report behind it";
        world.ask("AR");
        // Whoever writes next gets it, and what he writes is obeyed.
        EXPECT_EQ(world.ask("K"), welcome + "|*91234567\n*92345678\n");
        EXPECT_TRUE(world.ask("?").contains("\n+4791111111\n"));
        EXPECT_EQ(world.ask("Hei"), "");
    }
}

TEST_F(Door, WelcomesAnAssistantOnceAndOnHisOwnPhone)
{
    QByteArrayList heard;
    network.addPhone(u"+4793456789"_qs, {[&](const SmsMessage &message) {
                                             heard += message.text;
                                             return true;
                                         },
                                         {}});
    for (const char *command : {"A3 93456789", "A3 93456789", "A3 ", "A3 93456789"}) {
        EXPECT_FALSE(ask(command).contains("Velkommen")) << command;
    }
    EXPECT_EQ(heard, QByteArrayList(2, "Hovedport\nVelkommen som NY Assistent"));
    // His place is his mark, as long as he has it.
    EXPECT_EQ(ask("I 93456789*1"), "Hovedport\n93456789 er lagt til A-3\nSALDO: 1\nSlutt");
    EXPECT_EQ(ask("K"), "*91234567\n*92345678\n*93456789-3\n");
    ask("A3 ");
    EXPECT_EQ(ask("K"), "*91234567\n*92345678\n*93456789\n");
}

TEST_F(Door, OpensForThoseWhoMayEnterAndLogsThem)
{
    door.seedUser(u"93456789"_qs, {DoorPeriod{{2026, 12, 1}, 8, {2026, 12, 3}, 16}});
    const QDateTime nine(QDate(2026, 12, 1), QTime(9, 5));
    const struct {
        const char *caller;
        const char *at;
        DoorCall becomes;
    } calls[] = {
        {"+4793456789", "2026-12-01T07:59", DoorCall::OutsidePeriod},
        {"+4793456789", "2026-12-01T08:00", DoorCall::Opened},
        {"93456789", "2026-12-03T15:59", DoorCall::Opened},
        {"+4793456789", "2026-12-03T16:00", DoorCall::OutsidePeriod},
        {"+4593456789", "2026-12-02T09:00", DoorCall::Unknown}, // of another country
        {"+4794567890", "2026-12-02T09:00", DoorCall::Unknown},
        {"", "2026-12-02T09:00", DoorCall::Unknown},
        {"+4792345678", "2026-12-02T09:00", DoorCall::Unknown}, // registered as foreign
        {"+4692345678", "2026-12-10T09:05", DoorCall::Opened},
        {"+4692345678", "2026-12-10T21:30", DoorCall::Opened},
        {"+4692345678", "2027-12-10T00:00", DoorCall::Opened},
        {"+4692345678", "2027-12-10T00:00", DoorCall::NoBalance},
    };
    for (const auto &[caller, at, becomes] : calls) {
        EXPECT_EQ(door.call(QString::fromLatin1(caller),
                            QDateTime::fromString(QString::fromLatin1(at), Qt::ISODate)),
                  becomes)
            << caller << ' ' << at;
    }
    EXPECT_EQ(door.users().at(u"92345678"_qs).balance(), 0);
    EXPECT_EQ(ask("r5"), "*93456789\n1/12,8:00\n*93456789\n3/12,15:59\n*92345678\n10/12,"
                         "9:05\n*92345678\n10/12,21:30\n*92345678\n10/12,0:00\n");
}

TEST_F(DoorAnswer, TellsLongListsInSeveralMessagesBetweenTheRecords)
{
    QByteArrayList log;
    QByteArray list = ask("K");
    for (int i = 0; i < 120; ++i) {
        const QString number = QString::number(930'000'000 + i);
        const QDateTime at(QDate(2026, 12, 10), QTime(10, 0).addSecs(60 * i));
        door.seedUser(number, {kPeriod, false, '2'});
        list += '*' + number.toLatin1() + "-2\n";
        door.seedUser(number, {1});
        door.call(number, at);
        door.seedUser(number, {kPeriod, false, '2'});
        log += '*' + number.toLatin1() + '\n' + at.toString(u"d/M,h:mm").toLatin1() + '\n';
    }
    const std::pair<QByteArray, QByteArray> answers[] = {
        {"r100", log.mid(20).join()}, {"r5", log.mid(115).join()}, {"K", list}};
    for (const auto &[command, whole] : answers) {
        QByteArrayList messages = ask(command).split('|');
        EXPECT_EQ(messages.join(), whole);
        EXPECT_LE(messages.size(), whole.size() / 130 + 1);
        for (const QByteArray &message : messages) {
            EXPECT_LE(message.size(), 160);
            EXPECT_TRUE(message.startsWith('*') && message.endsWith('\n')) << message.constData();
        }
    }
}

TEST_F(Door, SendsAnAlarmToEachOfItsAdministratorsOnce)
{
    EXPECT_EQ(door.alarm(), 0);
    ask("?");
    for (const char *command : {"A1 91111111", "A4 93456789", "T5 Innbrudd!", "T6 Solbakken"}) {
        ask(command);
    }
    received.clear();
    EXPECT_EQ(door.alarm(), 2);
    EXPECT_EQ(delivered(), "Innbrudd!\nSolbakken|");
    for (const auto &silence : {QByteArrayList{"V0"}, {"V1", "T5 ", "T6 "}}) {
        for (const QByteArray &command : silence) {
            ask(command);
        }
        EXPECT_EQ(door.alarm(), 0);
    }
}

TEST_F(DoorAnswer, CarriesTheMarkOfAnAdministratorUntilItIsDeleted)
{
    door.seedUser(u"91234567"_qs, {kOther, false, '2'});
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(ask("I 91234567>26120100<26120324"),
                  "Hovedport\n91234567 finnes allerede A-2" + kDates);
    }
    ask("U 91234567");
    EXPECT_EQ(ask("I 91234567>26120100<26120324"), "Hovedport\n91234567 er lagt til" + kDates);
}

// Readers take the first "/" and "-" of the text for those of a date, and step 13 characters back
// from the sentence: a name must not lead them astray.
TEST_F(DoorAnswer, KeepsMisleadingNamesFromItsReaders)
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

TEST_F(DoorAnswer, FitsIntoOneMessageAtItsLongest)
{
    DoorWorld world(DoorLanguage::Swedish, QString(20, u'å'));
    world.door.seedUser(QString(20, u'9'), {kOther, false, '5'});
    const QByteArray answer = world.ask("I " + QByteArray(20, '9') + ">26120100<26120324");
    EXPECT_TRUE(answer.contains("A-5"));
    EXPECT_LE(answer.size(), 160);
    for (const char *command : {"B !\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<"
                                "\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<\x1b<",
                                "A1 123456789", "A2 123456789", "A3 123456789", "A4 123456789",
                                "A5 123456789", "?", "A6 +471234567890"}) {
        EXPECT_LE(world.ask(command).size(), 160) << command;
    }
}

TEST_F(DoorAnswer, ComesBehindTheUnitsOwnTimeAndIsBriefWhenTold)
{
    door.setAnswerDelay(10s);
    door.setAnswers(DoorUnit::Answers::Brief);
    network.send(kStranger, kDoor, "I 92345678*25");
    clock.run(13999ms);
    EXPECT_EQ(received, "");
    clock.run(1ms);
    EXPECT_EQ(received, "Hovedport\n92345678 finnes allerede|");
}

} // namespace
