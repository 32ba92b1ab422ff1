#include "inbound/InboundWorld.h"

#include "data/Connection.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct MessageReading : testing::Test, InboundWorld {};

TEST_F(MessageReading, TickThatComesEarlyTakesNoLineFromIt)
{
    endsListing = false;
    shown = [&] {
        ASSERT_TRUE(link.TimerCom->isEnabled());
        clock.after(500ms, [&] {
            port.feed("\r\nOK\r\n");
            link.watcher.timerComTick();
        });
    };
    doorSays("Sm\xf8r");
    EXPECT_THAT(commands, ElementsAre("AT+CMGD=7"));
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

TEST_F(MessageReading, TimersStandAsTheTextCommands)
{
    for (const Coupling &coupling : kCouplings) {
        SCOPED_TRACE(coupling.body.constData());
        empty();
        Moment moment;
        link.pace.restart(2s);
        shown = [&] {
            moment = {link.TimerCom->isEnabled(), link.pace.isRunning(), link.pace.interval(),
                      link.flags.ReadingMessages};
        };
        doorSays(coupling.body, coupling.sender);
        EXPECT_EQ(moment, coupling.moment);
        EXPECT_TRUE(link.TimerCom->isEnabled());
        EXPECT_FALSE(link.flags.ReadingMessages);
        EXPECT_EQ(link.pace.interval(), 3000ms);
    }
}

TEST_F(MessageReading, BodiesOf64KibibytesEnd)
{
    const QByteArray kPieces[] = {"*",           "*1",         "*91234567",      "*91234567\n",
                                  "*91234567-",  "/,:*912345", "*91234567/,:\n", "A1A2A3",
                                  "er lagt til", ",6,",        "*91234567 OK",   "Administrator"};
    for (const QByteArray &piece : kPieces) {
        SCOPED_TRACE(piece.constData());
        empty();
        doorSays(piece.repeated(0x10000 / piece.size()));
        EXPECT_THAT(commands, ElementsAre("AT+CMGD=7"));
        EXPECT_EQ(rows("SMS_Received").size(), 1U);
        // Of so long a text no family reads more than 200 characters.
        EXPECT_LE(rows("Katalog").size(), 1U);
        EXPECT_LE(rows("LOGGData").size(), 20U);
    }
}

TEST_F(MessageReading, ScreenIsRefreshedAndThePanelTellsTheState)
{
    QStringList refreshed;
    recordsets.display = [&] { refreshed += u"recordsets"_qs; };
    shown = [&] { refreshed += u"grid"_qs; };
    doorSays("Hei");
    EXPECT_EQ(refreshed, (QStringList{u"recordsets"_qs, u"grid"_qs}));
    EXPECT_EQ(view.panelHistory,
              (QStringList{u"Melding 7 MOTTATT"_qs, u"Klar for innkommende SMS"_qs}));
}

TEST_F(MessageReading, PortThatGoesInTheMiddleLeavesTheLinkReady)
{
    person.answers(u"COM-porten"_qs); // once, by the watcher
    shown = [&] { port.unplug(); };
    doorSays("Hovedport\n91234567 er lagt til");
    clock.run(5s);
    EXPECT_EQ(rows("TBLbrukere").size(), 1U);
    EXPECT_EQ(store.size(), 1U);
    EXPECT_TRUE(link.TimerCom->isEnabled());
    EXPECT_FALSE(link.flags.ReadingMessages);
}

TEST_F(MessageReading, RefusedRowDoesNotRideAlongWithTheNext)
{
    database.look().run(u"CREATE TRIGGER full BEFORE INSERT ON Katalog BEGIN "
                        "SELECT RAISE(ABORT, 'disk full'); END"_qs);
    doorSays("Hovedport\n91111111 er lagt til");
    EXPECT_EQ(rows("TBLbrukere").size(), 1U) << "the user is written without his person";
    database.look().run(u"DROP TRIGGER full"_qs);
    doorSays("Hovedport\n92222222 er lagt til");
    EXPECT_THAT(rows("Katalog"), ElementsAre("+4792222222 |92222222 |?|?"));
}

TEST_F(MessageReading, MessageWaitsInTheModemForTheDatabase)
{
    const auto connection = std::exchange(module.DatabaseConnection, nullptr);
    person.answers(u"Ingen database er åpen"_qs);
    doorSays("Hovedport\n91234567 er lagt til");
    EXPECT_THAT(commands, IsEmpty());
    module.DatabaseConnection = connection;
    lists();
    EXPECT_THAT(commands, ElementsAre("AT+CMGD=7"));
    EXPECT_EQ(rows("SMS_Received").size(), 1U);
    EXPECT_EQ(rows("TBLbrukere").size(), 1U);
}

TEST_F(MessageReading, EndOfTheProgramIsNoFailingStep)
{
    link.watcher.Read_SMS_MessageTEXT = [] {};
    link.response.setText(u"+CMGL: 7,\"REC UNREAD\",\"+4790000001\",,\"26/12/01,12:34:56+04\""_qs);
    clock.after(100ms, [&] { clock.end(); });
    EXPECT_THROW(reader.Read_SMS_MessageTEXT(), ProgramEnds);
    EXPECT_THAT(rows("SMS_Received"), IsEmpty());
}

TEST_F(MessageReading, HeadersWithoutEndDoNotEatTheStack)
{
    for (int i = 0; i < 5000; ++i) {
        port.feed("+CMGL: " + QByteArray::number(i % 200 + 1) +
                  ",\"REC UNREAD\",\"12345678\",,\"26/12/01,12:34:56+04\"\r\n");
    }
    clock.run(60s);
    EXPECT_EQ(port.bytesAvailable(), 0);
    EXPECT_TRUE(link.TimerCom->isEnabled());
    EXPECT_FALSE(link.flags.ReadingMessages);
}

} // namespace
