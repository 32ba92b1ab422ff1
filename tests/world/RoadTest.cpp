#include "support/World.h"

#include <QAbstractButton>

#include <gtest/gtest.h>

namespace {

const QString kDoor = QStringLiteral("+4790000001");
const QString kUser = QStringLiteral("+4791234567");

using Line = World::Line;
using Language = DoorLanguage;
constexpr auto kBrief = DoorUnit::Answers::Brief;
constexpr auto kFull = DoorUnit::Answers::Full;

struct RoadCase {
    const char *name;
    Line line;
    Language language;
    DoorUnit::Answers answers;
    bool reports = false;
    QString number = kUser;
    QString saldo = {};
    const char *command = "I 91234567>26120100<26120324";
    const char *row = nullptr; ///< Konto, Saldo, Gyldig til, where the case is about them
};

const RoadCase kRoads[] = {
    {"Norwegian, COM", Line::Com, Language::Norwegian, kBrief},
    {"Danish, COM", Line::Com, Language::Danish, kFull},
    {"Swedish, COM, reports", Line::Com, Language::Swedish, kBrief, true},
    {"Norwegian, network, reports", Line::Tcp, Language::Norwegian, kFull, true},
    {"Danish, network", Line::Tcp, Language::Danish, kBrief},
    {"Swedish, network", Line::Tcp, Language::Swedish, kFull},
    {"a foreign number keeps its country",
     Line::Com,
     Language::Norwegian,
     kFull,
     false,
     u"+46701234567"_qs,
     {},
     "i 701234567>26120100<26120324"},
    // The count is kept as the report has it, the blank behind the colon included.
    {"a balance", Line::Com, Language::Norwegian, kFull, false, kUser, u"25"_qs, "I 91234567*25",
     "Saldo| 25|31/12/2099"},
};

} // namespace

TEST(Road, EndsActiveAndTheWayBackWithoutTheUser)
{
    for (const RoadCase &road : kRoads) {
        SCOPED_TRACE(road.name);
        World world({.line = road.line,
                     .reports = road.reports,
                     .doors = {{kDoor, u"Hovedport"_qs, road.language}}});
        world.door().setAnswers(road.answers);
        world.registerUser(road.number, road.saldo);

        EXPECT_TRUE(world.runUntilStatus(road.number, u"Aktiv "_qs, 60s))
            << world.status(road.number).toStdString();
        EXPECT_EQ(world.received(kDoor), QStringList{QString::fromUtf8(road.command)});
        const DoorUser &user = world.door().users().at(road.number.mid(3));
        EXPECT_EQ(user.foreign, road.number != kUser);
        EXPECT_EQ(user.hasBalance() ? user.balance() : 0, road.saldo.toInt());
        EXPECT_TRUE(world.runUntilIdle(30s));
        EXPECT_EQ(world.value(u"SELECT Etternavn || ',' || Fornavn FROM Katalog WHERE Bruker = "
                              "'%1'"_qs.arg(road.number)),
                  u"Nordås,Kari");
        EXPECT_EQ(world.rows(u"SELECT FraNummer, Etternavn FROM SMS_Received"_qs).first(),
                  u"+4790000001|Hovedport");
        if (road.row) {
            EXPECT_EQ(world.rows(u"SELECT Konto, Saldo, [Gyldig til] FROM TBLbrukere"_qs),
                      QStringList{QString::fromUtf8(road.row)});
        }
        // With reports by the network's word, else at once.
        EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), u"0:OK"_qs);

        world.chooseTab(u"Alle"_qs);
        world.person.answers(u"Bruker er allerede registrert!!"_qs, Answer::Cancel);
        world.type("Txtfields_0", road.number);
        world.click("CommandSlettBruker");
        EXPECT_TRUE(world.runUntilStatus(road.number, u"-"_qs));
        EXPECT_TRUE(world.door().users().empty());
    }
}

/// Once a result is awaited.
void whileItWaits(World &world, const std::function<void()> &act)
{
    if (world.modemLink().flags.WaitingForCmgs) {
        act();
    } else {
        world.clock.after(100ms, [&world, act] { whileItWaits(world, act); });
    }
}

TEST(Road, AClickOnTheLineAwaitsTheMessageUnderWay)
{
    for (const char *name : {"mnuSMSSendingsbekreftelsePå", "mnuComPortComNone", "mnuComPortCom1",
                             "mnuComPortCom2", "cmdDisconnect", "Command2", "Command3"}) {
        SCOPED_TRACE(name);
        World world({.line = *name == 'm' ? Line::Com : Line::Tcp});
        world.modem.setSubmissionTime(15s);
        world.registerUser(kUser);
        const QByteArray &written = *name == 'm' ? world.port.written : world.socket.written;
        whileItWaits(world, [&] {
            *name == 'm' ? world.control<QAction>(name).trigger() : world.click(name);
            EXPECT_TRUE(written.endsWith('\x1a'));
            EXPECT_TRUE(world.person.isBusy());
        });
        world.person.isPatient = true; // COM2 has no modem
        world.clock.run(30s);
        EXPECT_FALSE(world.person.isBusy());
        EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), u"0:OK"_qs);
        EXPECT_EQ(written.count("AT+CMGS="), 1);
    }
}

struct Closing {
    milliseconds time;
    int refusals;
    QString state;
    enum { ByOperator, ByMachine, WhileRowsAreHeld } how = ByOperator;
};
struct ClosingInASubmission : testing::TestWithParam<Closing> {};
// Behind an answer of the network, or when none has come for long enough.
INSTANTIATE_TEST_SUITE_P(Road, ClosingInASubmission,
                         testing::Values(Closing{15s, 0, u"0:OK"_qs}, Closing{15s, 1, u"UNSENT"_qs},
                                         Closing{60s, 0, u"UNSENT"_qs},
                                         Closing{15s, 0, u"0:OK"_qs, Closing::ByMachine},
                                         Closing{8s, 0, u"0:OK"_qs, Closing::WhileRowsAreHeld}));

TEST_P(ClosingInASubmission, EndsBehindTheAttempt)
{
    const auto &[time, refusals, state, how] = GetParam();
    World world;
    world.modem.setSubmissionTime(time);
    world.modem.faults().refuseSubmission = FaultCount::times(refusals);
    world.registerUser(kUser);
    if (how != Closing::ByMachine) {
        world.person.answers(u"Vent til SMS sending er ferdig"_qs);
    }
    milliseconds closedAt{0};
    whileItWaits(world, [&, how = how] {
        closedAt = world.clock.elapsed();
        if (how == Closing::WhileRowsAreHeld) {
            world.execute(u"CREATE TRIGGER held BEFORE UPDATE ON SMS_Sent BEGIN "
                          "SELECT RAISE(ABORT, 'held'); END"_qs);
            world.clock.after(12s, [&] { world.execute(u"DROP TRIGGER held"_qs); });
        }
        how == Closing::ByMachine ? world.application().close() : void(world.screen().close());
    });
    world.clock.run(1min);

    EXPECT_TRUE(world.clock.hasEnded());
    EXPECT_GT(closedAt, 0ms);
    EXPECT_LT(world.clock.elapsed() - closedAt, std::min<milliseconds>(time, 30s) + 9s);
    EXPECT_EQ(world.port.written.count("AT+CMGS="), 1);
    EXPECT_FALSE(world.screen().isVisible());
    EXPECT_TRUE(world.settings.saved.isEmpty());
    EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), state);
    EXPECT_EQ(world.value(u"SELECT ModemOwner FROM Modem"_qs), u"KONTOR-1");
}

TEST(Road, ButtonsOfTheNetworkModemWorkTheLine)
{
    World world({.line = Line::Tcp});
    const auto enabled = [&](const char *name) { return world.control<QWidget>(name).isEnabled(); };
    EXPECT_FALSE(enabled("txtHostName"));

    const auto count = world.socket.written.count("AT\r");
    world.click("Command2");
    EXPECT_EQ(world.socket.written.count("AT\r"), count + 1);
    world.click("Command3");
    EXPECT_EQ(world.socket.written.count("AT+CGMM"), 2);

    for (const bool shows : {true, false}) { // the group has brought the box
        world.click("ComShowCom");
        EXPECT_EQ(world.control<QWidget>("rtfTerminalScreen").isVisible(), shows);
        EXPECT_EQ(world.control<QAbstractButton>("ComShowCom").text(),
                  shows ? u"Skjul Modemkommunikasjon"_qs : u"Vis Modemkommunikasjon"_qs);
    }

    world.click("cmdDisconnect");
    EXPECT_FALSE(world.application().module().ModemReady);
    EXPECT_EQ(world.value(u"SELECT ModemManufacturer || ModemStatus FROM Modem"_qs), u"No Modem0");
    EXPECT_TRUE(enabled("txtHostName"));
    EXPECT_FALSE(enabled("Command2"));

    world.person.answers(u"Kobler til: "_qs, Answer::Ok);
    world.click("cmdConnect");
    EXPECT_TRUE(world.application().module().ModemReady);
}

// Each kind of answer, from the operator's command to the tables, by a unit of each language. Each
// holds two users, of whom the second has been in twice.
TEST(Doors, AnswerEveryCommandSoThatTheTablesFollow)
{
    const char *const kReport = "(Beskrivelse = KeyNavn) || '|' || Admin || '|' || Admin1 || '|' "
                                "|| Admin2 || '|' || Admin3 || '|' || Admin4 || '|' || Admin5 || "
                                "'|' || Eget_Nummer";
    const char *const kUsers = "(SELECT group_concat(KeyBruker || ' ' || Status || ' ' || Konto, "
                               "'; ') FROM TBLbrukere u WHERE u.KeyNummer = d.KeyNummer)";
    const char *const kSaldo = "(SELECT Saldo FROM TBLbrukere u WHERE u.KeyNummer = d.KeyNummer "
                               "AND trim(KeyBruker) = '+4793456789')";
    const char *const kLog = "(SELECT group_concat(KeyUser || ' ' || Dato, '; ') FROM LOGGData l "
                             "WHERE l.KeyNummer = d.KeyNummer)";
    const struct {
        const char *command;
        const char *shows; ///< of a door
        QString row;
    } kSteps[] = {
        {"?", "Admin", u"1"_qs},
        {"A2 92345678", kReport, u"1|99000000||92345678||||99999999"_qs},
        {"AR", "Admin", u"0"_qs},
        {"?", "Admin", u"1"_qs},
        // The second user's mark is behind the first too: the first mark of a message counts.
        {"K", kUsers, u"+4791234567 AKTIV A2 Hentet; +4792345678 AKTIV A2 Hentet"_qs},
        // A new user, one who is there already, and one who goes.
        {"I 93456789>26120100<26120324", kSaldo, u"0"_qs},
        {"I 93456789*25", kSaldo, u" 25"_qs},
        {"U 93456789", kSaldo, {}},
        // The last entry's minute has no line feed behind it, and is that of the entry before.
        {"r5", kLog, u"92345678 30/11,08:05; 92345678 01/12,17:05"_qs},
        {"V0", "KeySikkerhet", u"6"_qs},
        {"A5 99000000", "KeySikkerhet", u"4"_qs},
        {"A6 +4790000009", kReport, u"1|99000000||92345678|||99000000|90000009"_qs},
        {"B !Sidedør", "Beskrivelse", u"Sidedør"_qs},
        {"A2 ", "Admin2", {}},
    };
    World world({.doors = {{kDoor, u"Hovedport"_qs, Language::Norwegian},
                           {u"+4790000002"_qs, u"Bagdør"_qs, Language::Danish},
                           {u"+4790000003"_qs, u"Källarport"_qs, Language::Swedish}}});
    world.execute(u"UPDATE KEYTable SET KeySikkerhet = '6'"_qs);
    for (std::size_t i = 0; i < 3; ++i) {
        for (const auto &number : {u"91234567"_qs, u"92345678"_qs}) {
            world.door(i).seedUser(number, {DoorPeriod{{2026, 1, 1}, 0, {2027, 1, 1}, 24}});
        }
        world.door(i).call(u"+4792345678"_qs, {QDate(2026, 11, 30), QTime(8, 5)});
        world.door(i).call(u"+4792345678"_qs, {QDate(2026, 12, 1), QTime(17, 30)});
    }
    for (const auto &[command, shows, row] : kSteps) {
        for (std::size_t i = 0; i < 3; ++i) {
            const DoorUnit &door = world.door(i);
            world.modemLink().queue.queueDoorCommand(door.number(), door.name(),
                                                     QString::fromUtf8(command),
                                                     world.clock.now().date(), u"UNSENT"_qs);
            world.clock.run(1min);
            EXPECT_TRUE(world.runUntilIdle()) << command;
        }
        EXPECT_EQ(world.rows(
                      u"SELECT %1 FROM KEYTable d ORDER BY KeyNummer"_qs.arg(QLatin1String(shows))),
                  QStringList({row, row, row}))
            << command;
    }
    EXPECT_EQ(world.door(1).settings().alarmFunction, 0);
}
