#include "support/World.h"

#include <QDateEdit>
#include <QLabel>
#include <QPushButton>

#include <gtest/gtest.h>

namespace {

const QString kUser = QStringLiteral("+4791234567");

struct RoadCase {
    const char *name;
    World::Line line;
    DoorLanguage language;
    DoorUnit::Answers answers;
    bool reports;
};

class Road : public testing::TestWithParam<RoadCase> {};

} // namespace

TEST_P(Road, EndsActive)
{
    const RoadCase &road = GetParam();
    World world({.line = road.line,
                 .reports = road.reports,
                 .doors = {{u"+4790000001"_qs, u"Hovedport"_qs, road.language}}});
    world.door().setAnswers(road.answers);

    world.registerUser(kUser);

    ASSERT_TRUE(world.runUntilStatus(kUser, u"Aktiv "_qs, 60s))
        << world.status(kUser).toStdString();
    EXPECT_EQ(world.received(u"+4790000001"_qs), QStringList{u"I 91234567>26120100<26120324"_qs});
    EXPECT_EQ(world.door().users().count(u"91234567"_qs), 1U);
    EXPECT_TRUE(world.runUntilIdle(30s));
    EXPECT_EQ(world.value(u"SELECT Etternavn || ',' || Fornavn FROM Katalog WHERE Bruker = "
                          "'+4791234567'"_qs),
              u"Nordås,Kari");
    EXPECT_EQ(world.rows(u"SELECT FraNummer, Etternavn FROM SMS_Received"_qs).first(),
              u"+4790000001|Hovedport");
    // With reports by the network's word, else at once.
    EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), u"0:OK"_qs);
}

INSTANTIATE_TEST_SUITE_P(
    Roads, Road,
    testing::Values(RoadCase{"comNorwegian", World::Line::Com, DoorLanguage::Norwegian,
                             DoorUnit::Answers::Brief, false},
                    RoadCase{"comDanishFull", World::Line::Com, DoorLanguage::Danish,
                             DoorUnit::Answers::Full, false},
                    RoadCase{"comSwedish", World::Line::Com, DoorLanguage::Swedish,
                             DoorUnit::Answers::Brief, true},
                    RoadCase{"tcpNorwegianFull", World::Line::Tcp, DoorLanguage::Norwegian,
                             DoorUnit::Answers::Full, true},
                    RoadCase{"tcpDanish", World::Line::Tcp, DoorLanguage::Danish,
                             DoorUnit::Answers::Brief, false},
                    RoadCase{"tcpSwedishFull", World::Line::Tcp, DoorLanguage::Swedish,
                             DoorUnit::Answers::Full, false}),
    [](const auto &road) { return road.param.name; });

TEST(World, ForeignNumberGoesWithASmallLetterAndKeepsItsCountry)
{
    World world;
    world.registerUser(u"+46701234567"_qs);

    EXPECT_TRUE(world.runUntilStatus(u"+46701234567"_qs, u"Aktiv "_qs));
    EXPECT_EQ(world.received(u"+4790000001"_qs), QStringList{u"i 701234567>26120100<26120324"_qs});
    EXPECT_TRUE(world.door().users().at(u"701234567"_qs).foreign);
}

TEST(World, BalanceUserIsSentAndReportedByItsCount)
{
    World world;
    world.registerUser(kUser, u"25"_qs);

    EXPECT_TRUE(world.runUntilStatus(kUser, u"Aktiv "_qs));
    EXPECT_EQ(world.received(u"+4790000001"_qs), QStringList{u"I 91234567*25"_qs});
    EXPECT_EQ(world.door().users().at(u"91234567"_qs).balance(), 25);
    // The count is kept as the report has it, the blank behind the colon included.
    EXPECT_EQ(world.rows(u"SELECT Konto, Saldo, [Gyldig til] FROM TBLbrukere"_qs),
              QStringList{u"Saldo| 25|31/12/2099"_qs});
}

TEST(World, EarlierPeriodChangesPlacesWithALaterOne)
{
    World world;
    world.door().setAnswerDelay(1h);
    const auto enter = [&](const QDate &from, const QDate &to) {
        world.click("cmdNyBruker");
        world.type("Txtfields_0", kUser);
        world.control<QDateEdit>("DTPickerFrom").setDate(from);
        world.control<QDateEdit>("DTPickerTo").setDate(to);
        world.click("CommandRegistrerBruker");
    };
    enter(QDate(2026, 12, 20), QDate(2026, 12, 24));
    ASSERT_TRUE(world.runUntilStatus(kUser, u"Registrerer"_qs));

    world.person.answers(u"Bruker er allerede registrert!!"_qs);
    enter(QDate(2026, 12, 5), QDate(2026, 12, 6));
    ASSERT_TRUE(
        world.runUntil([&] { return world.received(u"+4790000001"_qs).size() == 2; }, 3min));

    EXPECT_EQ(world.rows(u"SELECT [Gyldig fra], [Gyldig til] FROM TBLbrukere"_qs),
              QStringList{u"5/12/2026|6/12/2026"_qs});
    EXPECT_EQ(world.rows(u"SELECT [Gyldig fra], [Gyldig til], Status FROM NYEbrukere"_qs),
              QStringList{u"20/12/2026|24/12/2026|NY"_qs});
    EXPECT_EQ(world.received(u"+4790000001"_qs).last(), u"I 91234567>26120500<26120624");
}

TEST(World, TwoMessagesOfOneDayGoInOrderAndThirtySecondsApart)
{
    World world;
    // A door's answer would hurry the queue when it is read, so this one takes its time.
    world.door().setAnswerDelay(1min);
    world.registerUser(u"+4791000001"_qs);
    world.registerUser(u"+4791000002"_qs);

    ASSERT_TRUE(world.runUntilStatus(u"+4791000002"_qs, u"Aktiv "_qs));
    EXPECT_EQ(world.received(u"+4790000001"_qs), (QStringList{u"I 91000001>26120100<26120324"_qs,
                                                              u"I 91000002>26120100<26120324"_qs}));
    ASSERT_EQ(world.deliveries.size(), 2U);
    EXPECT_GE(world.deliveries[1] - world.deliveries[0], 30s);
    EXPECT_LT(world.deliveries[1] - world.deliveries[0], 40s);
}

TEST(World, DeletedUserLeavesTheDoorAndTheTable)
{
    World world;
    world.registerUser(kUser);
    ASSERT_TRUE(world.runUntilStatus(kUser, u"Aktiv "_qs));
    ASSERT_TRUE(world.runUntilIdle());

    world.chooseTab(u"Alle"_qs);
    world.person.answers(u"Bruker er allerede registrert!!"_qs, Answer::Cancel);
    world.type("Txtfields_0", kUser);
    world.click("CommandSlettBruker");

    EXPECT_TRUE(world.runUntilStatus(kUser, u"-"_qs));
    EXPECT_EQ(world.received(u"+4790000001"_qs).last(), u"U 91234567");
    EXPECT_TRUE(world.door().users().empty());
}

TEST(World, ClosingInTheMiddleOfASubmissionEndsAtOnceAndKeepsTheMessage)
{
    World world;
    world.modem.setSubmissionTime(15s);
    world.registerUser(kUser);
    world.person.answers(u"Vent til SMS sending er ferdig"_qs);
    milliseconds closedAt{0};
    std::function<void()> closeWhileWaiting = [&] {
        if (world.modemLink().flags.WaitingForCmgs) {
            closedAt = world.clock.elapsed();
            world.screen().close();
        } else {
            world.clock.after(100ms, closeWhileWaiting);
        }
    };
    world.clock.after(100ms, closeWhileWaiting);
    world.clock.run(1min);

    EXPECT_TRUE(world.clock.hasEnded());
    EXPECT_GT(closedAt, 0ms);
    EXPECT_LT(world.clock.elapsed() - closedAt, 3s);
    EXPECT_TRUE(world.settings.saved.isEmpty());
    EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), u"UNSENT");
    EXPECT_EQ(world.value(u"SELECT ModemOwner FROM Modem"_qs), u"KONTOR-1");
}

TEST(World, ReferencesStartAgainBehindTheLast)
{
    World world({.reports = true});
    world.modem.setNextReference(255);
    world.registerUser(u"+4791000001"_qs);
    world.registerUser(u"+4791000002"_qs);
    ASSERT_TRUE(world.runUntilStatus(u"+4791000002"_qs, u"Aktiv "_qs));
    ASSERT_TRUE(world.runUntilIdle());
    EXPECT_EQ(world.rows(u"SELECT CMGS FROM SMS_Sent ORDER BY ID"_qs),
              (QStringList{u"255:OK"_qs, u"0:OK"_qs}));
}

TEST(World, ButtonsOfTheNetworkModemWorkTheLine)
{
    World world({.line = World::Line::Tcp});
    const auto enabled = [&](const char *name) { return world.control<QWidget>(name).isEnabled(); };
    EXPECT_FALSE(enabled("txtHostName"));

    const auto count = world.Winsock1.written.count("AT\r");
    world.click("Command2");
    EXPECT_EQ(world.Winsock1.written.count("AT\r"), count + 1);
    world.click("Command3");
    EXPECT_EQ(world.Winsock1.written.count("AT+CGMM"), 2);

    auto &terminal = world.control<QWidget>("rtfTerminalScreen");
    const bool wasVisible = terminal.isVisible();
    world.click("ComShowCom");
    EXPECT_NE(terminal.isVisible(), wasVisible);

    world.click("cmdDisconnect");
    EXPECT_FALSE(world.application().module().ModemReady);
    EXPECT_EQ(world.value(u"SELECT ModemManufacturer || ModemStatus FROM Modem"_qs), u"No Modem0");
    EXPECT_TRUE(enabled("txtHostName"));
    EXPECT_FALSE(enabled("Command2"));

    world.person.answers(u"Kobler til: "_qs);
    world.click("cmdConnect");
    EXPECT_TRUE(world.application().module().ModemReady);
}
