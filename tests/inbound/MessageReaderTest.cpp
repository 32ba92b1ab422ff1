#include "inbound/InboundWorld.h"

#include "data/Connection.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char *kHeader =
    "+CMGL: 7,\"REC UNREAD\",\"+4790000001\",,\"26/12/01,12:34:56+04\"\r\n";

struct MessageReading : testing::Test, InboundWorld {};

TEST_F(MessageReading, TickThatComesEarlyTakesNoLineFromIt)
{
    endsListing = false;
    store[8] = listed("12345678", "Hei"); // what stands behind the text is still to come
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

TEST_F(MessageReading, OpensTheSetsThatCouldNotBeOpenedAndRefreshesTheScreen)
{
    QStringList refreshed;
    recordsets.display = [&] { refreshed += u"recordsets"_qs; };
    shown = [&] { refreshed += u"grid"_qs; };
    // As when another PC holds the file while it is read anew.
    for (Recordset *set : {&recordsets.rsSmsReceived, &recordsets.rsKatalog, &recordsets.rsKeyAll,
                           &recordsets.rsBrukereAll}) {
        empty();
        set->close();
        doorSays("Hovedport\n91234567 er lagt til");
        EXPECT_EQ(outcome(), "1 filed, 1 added, AT+CMGD=7");
        EXPECT_THAT(rows("SMS_Received"), ElementsAre(testing::HasSubstr("|Hovedport| |")));
    }
    EXPECT_TRUE(refreshed.endsWith(u"grid"_qs) && refreshed.contains(u"recordsets"_qs));
}

TEST_F(MessageReading, NothingIsFiledOfATextThatAClickHasReadInto)
{
    endsListing = false;
    person.answers(u"Modem not found"_qs);
    clock.after(1500ms, [&] { link.initialiser.InitModem(); });
    port.feed(kHeader);
    clock.run(2min);
    EXPECT_THAT(rows("SMS_Received"), IsEmpty());
}

TEST_F(MessageReading, NothingIsDeletedOnAModemThatWasChosenMeanwhile)
{
    shown = [&] { link.initialiser.InitModem(); };
    person.answers(u"Modem not found"_qs); // it says nothing of itself
    doorSays("Hei");
    clock.run(1min);
    EXPECT_EQ(rows("SMS_Received").size(), 1U);
    EXPECT_TRUE(commands.contains("AT+CMGF=1"));
    EXPECT_FALSE(commands.contains("AT+CMGD=7"));
}

TEST_F(MessageReading, PortThatGoesInTheMiddleLeavesTheLinkReady)
{
    person.answers(u"The port is gone"_qs); // once, by the watcher
    shown = [&] { port.unplug(); };
    doorSays("Hovedport\n91234567 er lagt til");
    clock.run(5s);
    EXPECT_EQ(outcome(), "1 filed, 1 added, ");
    EXPECT_TRUE(link.TimerCom->isEnabled());
    EXPECT_FALSE(link.flags.ReadingMessages);
    shown = [] {};
    port.plugIn();
    open(false);
    clock.run(10s);
    EXPECT_EQ(outcome(), "1 filed, 1 added, AT+CMGD=7");
}

TEST_F(MessageReading, PortThatGoesInTheMiddleOfATextLeavesTheMessageThere)
{
    port.feed(kHeader);
    clock.after(1500ms, [&] { port.unplug(); });
    clock.run(5s);
    EXPECT_THAT(rows("SMS_Received"), IsEmpty());
    EXPECT_TRUE(link.TimerCom->isEnabled());
}

TEST_F(MessageReading, MessageWaitsInTheModemForRoomOnTheDiskAndTheOperatorHearsOnce)
{
    Connection &connection = *module.DatabaseConnection;
    connection.run(u"PRAGMA max_page_count = 1"_qs); // no more than there are
    try {
        for (;;) {
            connection.run(u"INSERT INTO Katalog (Gate) VALUES ('full')"_qs);
        }
    } catch (const RuntimeFailure &) {
    }
    recordsets.OpenRecordsets();
    person.answers(u"full"_qs);
    doorSays("Hovedport\n91234567 er lagt til");
    lists();
    EXPECT_EQ(outcome(), "0 filed, 0 added, ");
    connection.run(u"PRAGMA max_page_count = 100000"_qs);
    lists();
    EXPECT_EQ(outcome(), "1 filed, 1 added, AT+CMGD=7");
}

TEST_F(MessageReading, MessageWaitsInTheModemForTheDatabase)
{
    const auto connection = std::exchange(module.DatabaseConnection, nullptr);
    person.answers(u"Ingen database er åpen"_qs, 10min);
    clock.after(5min, [&] { // the box still stands, and holds nothing up
        EXPECT_THAT(commands, IsEmpty());
        module.DatabaseConnection = connection;
        lists();
        EXPECT_THAT(commands, ElementsAre("AT+CMGD=7"));
    });
    doorSays("Hovedport\n91234567 er lagt til");
    EXPECT_EQ(outcome(), "1 filed, 1 added, AT+CMGD=7");
}

TEST_F(MessageReading, EndOfTheProgramIsNoFailingStep)
{
    link.watcher.Read_SMS_MessageTEXT = [] {};
    link.response.setText(QString::fromLatin1(kHeader).trimmed());
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
