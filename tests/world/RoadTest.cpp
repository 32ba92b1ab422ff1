#include "support/World.h"

#include <QAbstractButton>

#include <gtest/gtest.h>

namespace {

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

struct WorldOnCom : testing::Test, World {};

} // namespace

TEST(Road, EndsActive)
{
    for (const RoadCase &road : kRoads) {
        SCOPED_TRACE(road.name);
        World world({.line = road.line,
                     .reports = road.reports,
                     .doors = {{u"+4790000001"_qs, u"Hovedport"_qs, road.language}}});
        world.door().setAnswers(road.answers);
        world.registerUser(road.number, road.saldo);

        EXPECT_TRUE(world.runUntilStatus(road.number, u"Aktiv "_qs, 60s))
            << world.status(road.number).toStdString();
        EXPECT_EQ(world.received(u"+4790000001"_qs), QStringList{QString::fromUtf8(road.command)});
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
    }
}

TEST_F(WorldOnCom, DeletedUserLeavesTheDoorAndTheTable)
{
    registerUser(kUser);
    ASSERT_TRUE(runUntilStatus(kUser, u"Aktiv "_qs));
    ASSERT_TRUE(runUntilIdle());

    chooseTab(u"Alle"_qs);
    person.answers(u"Bruker er allerede registrert!!"_qs, Answer::Cancel);
    type("Txtfields_0", kUser);
    click("CommandSlettBruker");

    EXPECT_TRUE(runUntilStatus(kUser, u"-"_qs));
    EXPECT_EQ(received(u"+4790000001"_qs).last(), u"U 91234567");
    EXPECT_TRUE(door().users().empty());
}

// An answer that was read in between would set the pace anew.
TEST_F(WorldOnCom, SendsOneMessageInThirtySeconds)
{
    door().setAnswerDelay(10min);
    registerUser(kUser);
    registerUser(u"+4791234568"_qs);
    milliseconds reached[2] = {};
    for (int i = 0; i < 2; ++i) {
        const auto isThere = [&] { return received(u"+4790000001"_qs).size() == i + 1; };
        ASSERT_TRUE(clock.runUntil(isThere, 2min));
        reached[i] = clock.elapsed();
    }
    EXPECT_GE(reached[1] - reached[0], 30s);
    EXPECT_LT(reached[1] - reached[0], 33s);
}

TEST_F(WorldOnCom, ClosingInTheMiddleOfASubmissionEndsAtOnceAndKeepsTheMessage)
{
    modem.setSubmissionTime(15s);
    registerUser(kUser);
    person.answers(u"Vent til SMS sending er ferdig"_qs);
    milliseconds closedAt{0};
    std::function<void()> closeWhileWaiting = [&] {
        if (modemLink().flags.WaitingForCmgs) {
            closedAt = clock.elapsed();
            screen().close();
        } else {
            clock.after(100ms, closeWhileWaiting);
        }
    };
    clock.after(100ms, closeWhileWaiting);
    clock.run(1min);

    EXPECT_TRUE(clock.hasEnded());
    EXPECT_GT(closedAt, 0ms);
    EXPECT_LT(clock.elapsed() - closedAt, 3s);
    EXPECT_TRUE(settings.saved.isEmpty());
    EXPECT_EQ(value(u"SELECT CMGS FROM SMS_Sent"_qs), u"UNSENT");
    EXPECT_EQ(value(u"SELECT ModemOwner FROM Modem"_qs), u"KONTOR-1");
}

TEST(WorldOnNetwork, ButtonsOfTheNetworkModemWorkTheLine)
{
    World world({.line = World::Line::Tcp});
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
