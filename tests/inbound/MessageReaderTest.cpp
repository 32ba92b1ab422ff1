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

constexpr const char *kUnread =
    "+CMGL: 7,\"REC UNREAD\",\"+4790000001\",,\"26/12/01,12:34:56+04\"\r\n";
constexpr const char *kRead = "+CMGL: 7,\"REC READ\",\"+4790000001\",,\"26/12/01,12:34:56+04\"\r\n";
constexpr const char *kOk = "\r\nOK\r\n";

struct Listed {
    const char *what;
    QByteArrayList listings; ///< what the modem brings, one after the other
    QByteArray answer;       ///< to each deletion
    std::vector<std::string> filed;
    int deletions;
    bool isSetUp = false; ///< again, since it has forgotten its settings
};

const Listed kListings[] = {
    {"records behind it, more than one reading takes",
     {kUnread + QByteArray("Hei\r\n") +
      QByteArray("+CMGL: 8,\"REC READ\",\"+4712345678\"\r\nHo\r\n").repeated(150) + kOk},
     kOk,
     {"Hei"},
     1},
    {"a deletion refused",
     {kUnread + QByteArray("Hei\r\n") + kOk, kRead + QByteArray("Hei\r\n") + kOk},
     "\r\n+CMS ERROR: 321\r\n",
     {"Hei"},
     6},
    {"a deletion that nobody answers",
     {kUnread + QByteArray("Hei\r\n") + kOk, kRead + QByteArray("Hei\r\n") + kOk},
     "",
     {"Hei"},
     2},
    {"another message at its place",
     {kUnread + QByteArray("Hei\r\n") + kOk, kUnread + QByteArray("Ho\r\n") + kOk},
     "",
     {"Hei", "Ho"},
     2},
    {"what comes unasked, before the text and behind it",
     {kUnread +
      QByteArray("^RSSI:3\r\n\r\n+CRING: VOICE\r\n\r\nRING\r\n\r\n+CLIP: \"+4712345678\",145\r\n"
                 "Hei\r\n+CREG: 1\r\n\r\nNO CARRIER\r\nNO ANSWER\r\nBUSY\r\nNO DIALTONE\r\n"
                 "NO DIAL TONE\r\n*PSUTTZ: 1\r\n%CSQ: 1\r\n$X: 1\r\n#STN: 25\r\n") +
      kOk},
     kOk,
     {"Hei"},
     1},
    {"a notice behind the end of others",
     {kUnread + QByteArray("Hei\r\n+CMGL: 8,\"REC READ\",\"+47\"\r\nHo\r\n") + kOk +
      "\r\n^RSSI:3\r\n"},
     kOk,
     {"Hei"},
     1},
    {"a modem that starts anew behind another record",
     {kUnread + QByteArray("Hei\r\n+CMGL: 8,\"REC READ\",\"+47\"\r\n\r\nRDY\r\n"),
      kRead + QByteArray("Hei\r\n") + kOk},
     kOk,
     {"Hei"},
     1,
     true},
    {"a text that looks unasked",
     {kUnread + QByteArray("*100:5\r\n") + kOk, kUnread + QByteArray("RDY\r\n") + kOk},
     kOk,
     {"*100:5", "RDY"},
     2},
    {"a text that looks unasked before a record without one",
     {kUnread + QByteArray("+CREG: 1\r\n") + QByteArray(kRead).replace(" 7,", " 8,") + "\r\n" +
      kOk},
     kOk,
     {"+CREG: 1"},
     1},
    {"a text of several lines",
     {kUnread + QByteArray("Port\r\n\r\nOK\r\nA\r\n+CMTI: \"SM\",8\r\nslutt\r\n") + kOk},
     kOk,
     {"Port\r\nOK\r\nA\r\nslutt"},
     1},
    {"no blank in the header",
     {QByteArray(kUnread).remove(6, 1) + "Hei\r\n" + kOk},
     kOk,
     {"Hei"},
     1},
    {"a text of one letter", {kUnread + QByteArray("A\r\n") + kOk}, kOk, {"A"}, 1},
    {"silence behind the text, once",
     {kUnread + QByteArray("Hei\r\n"), kRead + QByteArray("Hei\r\n") + kOk},
     kOk,
     {"Hei"},
     1},
    {"silence in the middle, once",
     {kUnread, kRead + QByteArray("Hei\r\n") + kOk},
     kOk,
     {"Hei"},
     1},
    {"a header cut on the way",
     {"+CMGL: 7,\"REC UNREAD\",\"+47900\r\n", kRead + QByteArray("Hei\r\n") + kOk},
     kOk,
     {"Hei"},
     1},
    {"a header cut behind it",
     {kUnread + QByteArray("Hei\r\n+CMGL: 8,\"REC UN\r\n") + kOk,
      kRead + QByteArray("Hei\r\n") + kOk},
     kOk,
     {"Hei"},
     1},
    {"a text that looks like a header, and a record like it behind it",
     QByteArrayList(
         2, kUnread +
                QByteArray("+CMGL: hei\r\n+CMGL: 8, \"REC READ\", \"+47\"\r\n+CMGL: nei\r\n") +
                kOk),
     kOk,
     {"+CMGL: hei"},
     1},
    {"OK as the text of another",
     {kUnread + QByteArray("Hei\r\n+CMGL: 8,\"REC READ\",\"+47\"\r\nOK\r\n+CMGL: 9,\"REC UN\r\n") +
          kOk,
      kRead + QByteArray("Hei\r\n") + kOk},
     kOk,
     {"Hei"},
     1},
    {"a modem that starts anew",
     {kUnread + QByteArray("Hei\r\n\r\n^SYSSTART\r\n"), kRead + QByteArray("Hei\r\n") + kOk},
     kOk,
     {"Hei"},
     1,
     true},
    {"PDU mode",
     QByteArrayList(3,
                    QByteArray("+CMGL: 7,1,,24\r\n07917238010010F5040BC87238880900F1\r\n") + kOk),
     kOk,
     {},
     0,
     true},
    {"a modem that starts anew instead of deleting",
     {kUnread + QByteArray("Hei\r\n") + kOk, kRead + QByteArray("Hei\r\n") + kOk},
     "\r\nRDY\r\n",
     {"Hei"},
     2,
     true},
};

TEST_F(MessageReading, RecordIsFiledOnceAndDeletedWhenItsListingWasSeenWhole)
{
    bool wasSetUp = false;
    link.watcher.SetUpAgain = [&] { return wasSetUp = true; };
    for (const auto &[what, listings, answer, filed, deletions, isSetUp] : kListings) {
        SCOPED_TRACE(what);
        empty();
        commands.clear();
        port.onWrite = [&, &answer = answer](const QByteArray &bytes) {
            if (bytes.startsWith("AT+CMGD")) {
                EXPECT_EQ(bytes, "AT+CMGD=7\r");
                commands += bytes;
                port.feed(answer);
            }
        };
        for (const QByteArray &listing : listings) {
            link.pace.stop();
            port.feed("\r\n" + listing);
            clock.run(3min);
        }
        EXPECT_EQ(commands.size(), deletions);
        EXPECT_EQ(std::exchange(wasSetUp, false), isSetUp);
        std::vector<std::string> texts;
        for (const QString &text :
             database.rows(u"SELECT SMS_Text FROM SMS_Received ORDER BY ID"_qs)) {
            texts.push_back(text.toStdString());
        }
        EXPECT_EQ(texts, filed);
    }
}

TEST_F(MessageReading, MessageWaitsForSetsThatCouldNotBeOpened)
{
    recordsets.rsSmsReceived.close(); // as when another PC held the file that was chosen
    doorSays("Hovedport\n91234567 er lagt til");
    EXPECT_EQ(rows("SMS_Received").size(), 1U);
    EXPECT_EQ(rows("TBLbrukere").size(), 1U);
}

TEST_F(MessageReading, NothingIsFiledOfATextThatAClickHasReadInto)
{
    endsListing = false;
    person.answers(u"Modem not found"_qs);
    clock.after(1500ms, [&] { link.initialiser.InitModem(); });
    port.feed(kUnread);
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
    EXPECT_EQ(rows("TBLbrukere").size(), 1U);
    EXPECT_EQ(store.size(), 1U);
    EXPECT_TRUE(link.TimerCom->isEnabled());
    EXPECT_FALSE(link.flags.ReadingMessages);
    shown = [] {};
    port.plugIn();
    open(false);
    clock.run(10s);
    EXPECT_EQ(rows("SMS_Received").size(), 1U);
    EXPECT_THAT(commands, ElementsAre("AT+CMGD=7"));
}

TEST_F(MessageReading, PortThatGoesInTheMiddleOfATextLeavesTheMessageThere)
{
    port.feed(kUnread);
    clock.after(1500ms, [&] { port.unplug(); });
    clock.run(5s);
    EXPECT_THAT(rows("SMS_Received"), IsEmpty());
    EXPECT_TRUE(link.TimerCom->isEnabled());
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
    EXPECT_THAT(commands, IsEmpty());
    EXPECT_THAT(rows("SMS_Received"), IsEmpty());
    EXPECT_THAT(rows("TBLbrukere"), IsEmpty());
    connection.run(u"PRAGMA max_page_count = 100000"_qs);
    lists();
    EXPECT_THAT(commands, ElementsAre("AT+CMGD=7"));
    EXPECT_EQ(rows("SMS_Received").size(), 1U);
    EXPECT_EQ(rows("TBLbrukere").size(), 1U);
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
