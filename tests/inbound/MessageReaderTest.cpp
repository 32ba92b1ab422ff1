#include "inbound/InboundWorld.h"

#include "data/Connection.h"

#include <gmock/gmock.h>

#include <span>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A record in the modem's store, and the row of SMS_Received that comes of it.
struct Filing {
    const char *name;
    QByteArray sender;
    QByteArray body;
    std::string row; ///< FraNummer|FraNummerKort|Etternavn|Fornavn|Dato|SMS_Text
};

const std::string kStamp = "26/12/01,12:34:56";

const Filing kSenders[] = {
    {"stranger", "+4799999999", "Hei", "+4799999999|99999999|?|?|" + kStamp + "|Hei"},
    {"person", "+4791111111", "Hei", "+4791111111|91111111|Berg|Anne|" + kStamp + "|Hei"},
    {"surnameOnly", "+4792222222", "Hei", "+4792222222|92222222|Dahl|?|" + kStamp + "|Hei"},
    {"doorIsNamedBeforeANamelessPerson", InboundWorld::kDoor, "Hei",
     "+4790000001|90000001|Hovedport| |" + kStamp + "|Hei"},
    {"doorWithoutName", InboundWorld::kBackDoor, "Hei",
     "+4790000002|90000002|?| |" + kStamp + "|Hei"},
    {"noPlusIsCutAllTheSame", "12345678", "Hei", "12345678|45678|?|?|" + kStamp + "|Hei"},
    {"longNumber", "+471234567890123", "Hei", "+471234567890123|123456789|?|?|" + kStamp + "|Hei"},
    {"word", "Posten", "Hei", "Posten|ten|?|?|" + kStamp + "|Hei"},
    {"comma", "A, B", "Hei", "A, B|B|?|?|" + kStamp + "|Hei"},
    {"quoteFindsNobody", "O'Hara", "Hei", "O'Hara|ara|?|?|" + kStamp + "|Hei"},
    {"empty", "", "Hei", "||?|?|" + kStamp + "|Hei"}};

const Filing kBodies[] = {
    {"lines", "12345678", "En\nto\ntre", "12345678|45678|?|?|" + kStamp + "|En\r\nto\r\ntre"},
    {"modemAlphabet", "12345678", "D\x0cr {r \x11pen \x1c\x1d\x0e\x0f |\\",
     "12345678|45678|?|?|" + kStamp + "|Dør är _pen ÆæÅå öÖ"},
    {"codesFrom128Up", "12345678", "\x80\xe6\xff", "12345678|45678|?|?|" + kStamp + "|€æÿ"},
    {"codesWithoutCounterpart", "12345678",
     "5 \x1b"
     "e",
     "12345678|45678|?|?|" + kStamp + "|5 " + std::string(1, '\0') + "e"},
    {"longest", "12345678", QByteArray(255, 'x'),
     "12345678|45678|?|?|" + kStamp + '|' + std::string(255, 'x')},
    {"tooLong", "12345678", QByteArray(256, 'x'), "12345678|45678|?|?|" + kStamp + '|'},
    {"wordsOfTheModem", "12345678", "Alt er OK, ingen ERROR",
     "12345678|45678|?|?|" + kStamp + "|Alt er OK, ingen ERROR"},
    {"okAlone", "12345678", "OK", "12345678|45678|?|?|" + kStamp + "|OK"},
    {"noText", "12345678", "", "12345678|45678|?|?|" + kStamp + '|'},
    {"headerOfAnotherRecord", "12345678", "Se +CMGL: 9,\"REC READ\",\"+4790000002\",",
     "12345678|45678|?|?|" + kStamp + "|Se +CMGL: 9,\"REC READ\",\"+4790000002\","}};

void filesAsItCame(std::span<const Filing> filings)
{
    InboundWorld world;
    for (const Filing &filing : filings) {
        SCOPED_TRACE(filing.name);
        world.empty();
        world.person(u"+4791111111"_qs, u"Berg"_qs, u"Anne"_qs);
        world.person(u"+4792222222"_qs, u"Dahl"_qs, u""_qs);
        world.person(QString::fromLatin1(InboundWorld::kDoor), u""_qs, u""_qs);
        world.doorSays(filing.body, filing.sender);
        EXPECT_THAT(world.filed(), ElementsAre(filing.row));
        EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=7"));
        EXPECT_EQ(world.module.SenderNumber, QString::fromLatin1(filing.sender));
    }
}

TEST(Filing, NamesTheSender)
{
    filesAsItCame(kSenders);
}

TEST(Filing, TranslatesTheBody)
{
    filesAsItCame(kBodies);
}

TEST(MessageReader, TextTooLongToFileIsStillRead)
{
    InboundWorld world;
    world.doorSays("Hovedport\n91234567 er lagt til\n" + QByteArray(300, '.'));
    EXPECT_EQ(world.users().size(), 1U);
}

struct Odd {
    const char *name;
    int index;
    QByteArray record;
    std::vector<std::string> filed;
    QByteArray deletion;
};

const Odd kOddRecords[] = {
    {"storedToBeSent", 3, "+CMGL: 3,\"STO SENT\",\"+4790000001\",,\r\nHei\r\n", {}, "AT+CMGD=3"},
    {"deliveryReport",
     9,
     "+CMGL: 9,\"REC "
     "UNREAD\",6,45,,,\"26/12/01,12:34:56+04\",\"26/12/01,12:34:59+04\",0\r\n",
     {},
     "AT+CMGD=9"},
    {"indexZero",
     0,
     "+CMGL: 0,\"REC READ\",\"+4790000001\",,\"26/12/01,12:34:56+04\"\r\nHei\r\n",
     {},
     "AT+CMGD=0"},
    {"noStamp",
     4,
     "+CMGL: 4,\"REC READ\",\"+4790000001\",,\r\nHei\r\n",
     {"+4790000001|90000001|Hovedport| ||Hei"},
     "AT+CMGD=4"},
    // The sender of the message before stays where none can be cut.
    {"senderWithoutEnd",
     5,
     "+CMGL: 5,\"REC READ\",\"+47900/12/01,12:34:56\r\nHei\r\n",
     {"+4798765432|98765432|?|?|00/12/01,12:34:56|Hei"},
     "AT+CMGD=5"},
    {"nameOfTheCatalogueInTheFourthField",
     6,
     "+CMGL: 6,\"REC "
     "READ\",\"+4790000001\",\"Port\",\"26/12/01,12:34:56+04\",145,3\r\nHei\r\n",
     {"+4790000001|90000001|Hovedport| |26/12/01,12:34:56|Hei"},
     "AT+CMGD=6"}};

TEST(OddRecord, IsDeletedAndFiledOnlyAsAMessage)
{
    InboundWorld world;
    for (const Odd &odd : kOddRecords) {
        SCOPED_TRACE(odd.name);
        world.empty();
        world.holds(odd.index, odd.record);
        world.lists();
        EXPECT_EQ(world.filed(), odd.filed);
        EXPECT_THAT(world.commands, ElementsAre(odd.deletion));
        EXPECT_EQ(world.module.RefreshPending, !odd.filed.empty());
        EXPECT_EQ(world.view.panels[2], u"Klar for innkommende SMS"_qs);
    }
}

TEST(MessageReader, OfSeveralRecordsEachListingHandlesTheFirst)
{
    InboundWorld world;
    world.receives(1, "+4790000001", "Hovedport\n91111111 er lagt til");
    world.receives(2, "+4790000001", "Hovedport\n92222222 er lagt til");
    world.receives(3, "+4790000001", "Hovedport\n93333333 er lagt til");
    world.lists();
    EXPECT_EQ(world.filed().size(), 1U);
    EXPECT_EQ(world.store.size(), 2U);

    world.clock.run(30s); // the listings that TimerSEND_SMS asks for
    EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=1", "AT+CMGD=2", "AT+CMGD=3"));
    EXPECT_EQ(world.filed().size(), 3U);
    EXPECT_EQ(world.users().size(), 3U);
}

TEST(MessageReader, MessageWithoutTextTakesNothingFromTheNext)
{
    InboundWorld world;
    world.receives(1, "12345678", "");
    world.receives(2, "+4790000001", "Hovedport\n92222222 er lagt til");
    world.lists();
    world.clock.run(30s);
    EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=1", "AT+CMGD=2"));
    EXPECT_THAT(world.rows(u"SELECT FraNummer, SMS_Text FROM SMS_Received ORDER BY rowid"_qs),
                ElementsAre("12345678|", "+4790000001|Hovedport\r\n92222222 er lagt til"));
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

TEST(MessageReader, DeletionIsTriedThreeTimes)
{
    InboundWorld world;
    world.refusedDeletes = 2;
    world.doorSays("Hei");
    EXPECT_EQ(world.commands.size(), 3);
    EXPECT_TRUE(world.store.empty());

    world.commands.clear();
    world.refusedDeletes = 3;
    world.doorSays("Hei");
    EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=7", "AT+CMGD=7", "AT+CMGD=7"));
    EXPECT_EQ(world.store.size(), 1U);
}

TEST(MessageReader, WithoutOkBehindTheListingNothingIsDeleted)
{
    InboundWorld world;
    world.endsListing = false;
    world.doorSays("Hei");
    EXPECT_EQ(world.filed().size(), 1U);
    EXPECT_THAT(world.commands, IsEmpty());
    EXPECT_TRUE(world.link.TimerCom->isEnabled());
    EXPECT_FALSE(world.link.flags.ReadingMessages);
}

struct Moment {
    bool timerCom;
    bool timerSend;
    bool readingMessages;
    bool operator==(const Moment &) const = default;
};

/// What stands of the modem side while the routine is still at work, behind the families.
Moment duringMessage(InboundWorld &world, const QByteArray &body, const QByteArray &sender)
{
    Moment moment{};
    world.link.pace.restart(60s);
    world.shown = [&] {
        moment = {world.link.TimerCom->isEnabled(), world.link.pace.isRunning(),
                  world.link.flags.ReadingMessages};
    };
    world.doorSays(body, sender);
    return moment;
}

struct Coupling {
    const char *name;
    QByteArray sender;
    QByteArray body;
    Moment moment;
};

const Coupling kCouplings[] = {
    {"plainTextKeepsBothOff", "12345678", "Hei", {false, false, true}},
    {"failingStepSetsAllGoing", "12345678", "Sm\xf8r", {true, true, false}},
    {"quoteInSenderFailsTheLookup", "O'Hara", "Hei", {true, true, false}},
    {"okActsAsTheModems", "12345678", "OK her", {false, true, false}},
    {"errorActsAsTheModems", "12345678", "ERROR 12", {false, true, true}},
    {"noticeActsAsTheModems", "12345678", "+CMTI er kjedelig", {false, true, true}},
    // Only what the family for added users leaves of the text comes to the watcher again.
    {"remainderActsToo", "12345678", "Port\n91234567 er lagt til A-2 OK", {false, true, false}}};

TEST(WhileReading, TimersStandAsTheTextCommands)
{
    InboundWorld world;
    for (const Coupling &coupling : kCouplings) {
        SCOPED_TRACE(coupling.name);
        world.empty();
        EXPECT_EQ(duringMessage(world, coupling.body, coupling.sender), coupling.moment);
        EXPECT_TRUE(world.link.TimerCom->isEnabled());
        EXPECT_FALSE(world.link.flags.ReadingMessages);
        EXPECT_EQ(world.link.pace.interval(), 3000ms);
    }
}

TEST(MessageReader, ScreenIsRefreshedAndThePanelTellsTheState)
{
    InboundWorld world;
    int displayed = 0;
    int grids = 0;
    world.recordsets.display = [&] { ++displayed; };
    world.shown = [&] {
        EXPECT_EQ(displayed, 1) << "the grid comes behind the recordsets";
        ++grids;
    };
    world.doorSays("Hei");
    EXPECT_EQ(grids, 1);
    EXPECT_EQ(world.view.panelHistory,
              (QStringList{u"Melding 7 MOTTATT"_qs, u"Klar for innkommende SMS"_qs}));
    EXPECT_EQ(world.recordsets.rsSmsReceived.text(u"SMS_Text"_qs), u"Hei"_qs);
}

TEST(MessageReader, PortThatGoesInTheMiddleLeavesTheLinkReady)
{
    InboundWorld world;
    world.operator_.answers(u"COM-porten"_qs); // once, by the watcher
    world.shown = [&] { world.port.unplug(); };
    world.doorSays("Hovedport\n91234567 er lagt til");
    world.clock.run(5s);
    EXPECT_EQ(world.users().size(), 1U);
    EXPECT_EQ(world.store.size(), 1U);
    EXPECT_TRUE(world.link.TimerCom->isEnabled());
    EXPECT_FALSE(world.link.flags.ReadingMessages);
}

TEST(MessageReader, WithoutADatabaseTheMessageIsStillDeleted)
{
    InboundWorld world;
    world.recordsets.rsSmsReceived.close();
    world.recordsets.rsKatalog.close();
    world.recordsets.rsBrukereAll.close();
    world.doorSays("Hovedport\n91234567 er lagt til");
    EXPECT_THAT(world.filed(), IsEmpty());
    EXPECT_THAT(world.users(), IsEmpty());
    EXPECT_TRUE(world.store.empty());
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
