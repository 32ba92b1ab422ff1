#include "inbound/InboundWorld.h"

#include "data/Connection.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(MessageReader, OfSeveralRecordsEachListingHandlesTheFirstAndNothingOfTheNext)
{
    InboundWorld world;
    world.receives(1, "12345678", "");
    world.receives(2, "+4790000001", "Hovedport\n92222222 er lagt til");
    world.receives(3, "+4790000001", "Hovedport\n93333333 er lagt til");
    world.lists();
    EXPECT_EQ(world.store.size(), 2U);
    world.clock.run(30s); // the listings that TimerSEND_SMS asks for
    EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=1", "AT+CMGD=2", "AT+CMGD=3"));
    EXPECT_THAT(world.rows(u"SELECT FraNummer, SMS_Text FROM SMS_Received ORDER BY rowid"_qs),
                ElementsAre("12345678|", "+4790000001|Hovedport\r\n92222222 er lagt til",
                            "+4790000001|Hovedport\r\n93333333 er lagt til"));
    EXPECT_EQ(world.users().size(), 2U);
}

TEST(MessageReader, TickThatComesEarlyTakesNoLineFromIt)
{
    InboundWorld world;
    world.endsListing = false;
    world.shown = [&] {
        ASSERT_TRUE(world.link.TimerCom->isEnabled());
        world.clock.after(500ms, [&] {
            world.port.feed("\r\nOK\r\n");
            world.link.watcher.timerComTick();
        });
    };
    world.doorSays("Sm\xf8r");
    EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=7"));
}

TEST(MessageReader, DeletesInThreeAttemptsAndOnlyBehindAWholeListing)
{
    InboundWorld world;
    for (const auto &[endsListing, refused, deletions] :
         {std::tuple{true, 2, 3}, {true, 3, 3}, {false, 0, 0}}) {
        world.empty();
        world.endsListing = endsListing;
        world.refusedDeletes = refused;
        world.doorSays("Hei");
        EXPECT_EQ(world.commands.size(), deletions);
        EXPECT_EQ(world.commands.count("AT+CMGD=7"), deletions);
        EXPECT_EQ(world.store.empty(), refused == 2);
        EXPECT_EQ(world.filed().size(), 1U);
        EXPECT_TRUE(world.link.TimerCom->isEnabled());
        EXPECT_FALSE(world.link.flags.ReadingMessages);
    }
}

/// TimerCom, the send timer, its interval, ReadingMessages.
using Moment = std::tuple<bool, bool, milliseconds, bool>;

struct Coupling {
    QByteArray sender;
    QByteArray body;
    /// What stands of the modem side while the routine is still at work, of 2 s before it. Each
    /// change of a text with "OK" slows the send timer down by half.
    Moment moment;
};

const Coupling kCouplings[] = {
    {"12345678", "Hei", {false, false, 2000ms, true}},
    {"12345678", "Sm\xf8r", {true, true, 3000ms, false}},
    {"O'Hara", "Hei", {true, true, 3000ms, false}},
    {"12345678", "OK her", {false, true, 3000ms, false}},
    {"12345678", "ERROR 12", {false, true, 2000ms, true}},
    {"12345678", "+CMTI er kjedelig", {false, true, 2000ms, true}},
    // What families leave of the text comes to the watcher again, with each of their cuts.
    {"12345678", "Port\n91234567 er lagt til A-2 OK", {false, true, 4500ms, false}},
    {"12345678", "*91234567\n5/6,8:30\n*92345678\n5/6,9:05\nOK", {false, true, 15188ms, false}},
    {"12345678", "*91234567 OK\n*92345678", {false, true, 6750ms, false}}};

TEST(WhileReading, TimersStandAsTheTextCommands)
{
    InboundWorld world;
    for (const Coupling &coupling : kCouplings) {
        SCOPED_TRACE(coupling.body.constData());
        world.empty();
        Moment moment;
        world.link.pace.restart(2s);
        world.shown = [&] {
            moment = {world.link.TimerCom->isEnabled(), world.link.pace.isRunning(),
                      world.link.pace.interval(), world.link.flags.ReadingMessages};
        };
        world.doorSays(coupling.body, coupling.sender);
        EXPECT_EQ(moment, coupling.moment);
        EXPECT_TRUE(world.link.TimerCom->isEnabled());
        EXPECT_FALSE(world.link.flags.ReadingMessages);
        EXPECT_EQ(world.link.pace.interval(), 3000ms);
    }
}

TEST(MessageReader, BodiesOf64KibibytesEnd)
{
    const QByteArray kPieces[] = {"*",           "*1",         "*91234567",      "*91234567\n",
                                  "*91234567-",  "/,:*912345", "*91234567/,:\n", "A1A2A3",
                                  "er lagt til", ",6,",        "*91234567 OK",   "Administrator"};
    InboundWorld world;
    for (const QByteArray &piece : kPieces) {
        SCOPED_TRACE(piece.constData());
        world.empty();
        world.doorSays(piece.repeated(0x10000 / piece.size()));
        EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=7"));
        EXPECT_EQ(world.filed().size(), 1U);
        // Of so long a text no family reads more than 200 characters.
        EXPECT_LE(world.persons().size(), 1U);
        EXPECT_LE(world.rows(u"SELECT * FROM LOGGData"_qs).size(), 20U);
    }
}

TEST(MessageReader, ScreenIsRefreshedAndThePanelTellsTheState)
{
    InboundWorld world;
    QStringList refreshed;
    world.recordsets.display = [&] { refreshed += u"recordsets"_qs; };
    world.shown = [&] { refreshed += u"grid"_qs; };
    world.doorSays("Hei");
    EXPECT_EQ(refreshed, (QStringList{u"recordsets"_qs, u"grid"_qs}));
    EXPECT_EQ(world.view.panelHistory,
              (QStringList{u"Melding 7 MOTTATT"_qs, u"Klar for innkommende SMS"_qs}));
}

TEST(MessageReader, PortThatGoesInTheMiddleLeavesTheLinkReady)
{
    InboundWorld world;
    world.person.answers(u"COM-porten"_qs); // once, by the watcher
    world.shown = [&] { world.port.unplug(); };
    world.doorSays("Hovedport\n91234567 er lagt til");
    world.clock.run(5s);
    EXPECT_EQ(world.users().size(), 1U);
    EXPECT_EQ(world.store.size(), 1U);
    EXPECT_TRUE(world.link.TimerCom->isEnabled());
    EXPECT_FALSE(world.link.flags.ReadingMessages);
}

TEST(MessageReader, RefusedRowDoesNotRideAlongWithTheNext)
{
    InboundWorld world;
    world.database.look().run(u"CREATE TRIGGER full BEFORE INSERT ON Katalog BEGIN "
                              "SELECT RAISE(ABORT, 'disk full'); END"_qs);
    world.doorSays("Hovedport\n91111111 er lagt til");
    EXPECT_EQ(world.users().size(), 1U) << "the user is written without his person";
    world.database.look().run(u"DROP TRIGGER full"_qs);
    world.doorSays("Hovedport\n92222222 er lagt til");
    EXPECT_THAT(world.persons(), ElementsAre("+4792222222 |92222222 |?|?"));
}

TEST(MessageReader, MessageWaitsInTheModemForTheDatabase)
{
    InboundWorld world;
    const auto connection = std::exchange(world.module.DatabaseConnection, nullptr);
    world.person.answers(u"Ingen database er åpen"_qs);
    world.doorSays("Hovedport\n91234567 er lagt til");
    EXPECT_THAT(world.commands, IsEmpty());
    world.module.DatabaseConnection = connection;
    world.lists();
    EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=7"));
    EXPECT_EQ(world.filed().size(), 1U);
    EXPECT_EQ(world.users().size(), 1U);
}

TEST(MessageReader, EndOfTheProgramIsNoFailingStep)
{
    InboundWorld world;
    world.link.watcher.Read_SMS_MessageTEXT = [] {};
    world.link.response.setText(
        u"+CMGL: 7,\"REC UNREAD\",\"+4790000001\",,\"26/12/01,12:34:56+04\""_qs);
    world.clock.after(100ms, [&] { world.clock.end(); });
    EXPECT_THROW(world.reader.Read_SMS_MessageTEXT(), ProgramEnds);
    EXPECT_THAT(world.filed(), IsEmpty());
}

TEST(MessageReader, HeadersWithoutEndDoNotEatTheStack)
{
    InboundWorld world;
    for (int i = 0; i < 5000; ++i) {
        world.port.feed("+CMGL: " + QByteArray::number(i % 200 + 1) +
                        ",\"REC UNREAD\",\"12345678\",,\"26/12/01,12:34:56+04\"\r\n");
    }
    world.clock.run(60s);
    EXPECT_EQ(world.port.bytesAvailable(), 0);
    EXPECT_TRUE(world.link.TimerCom->isEnabled());
    EXPECT_FALSE(world.link.flags.ReadingMessages);
}

} // namespace
