#include "inbound/InboundWorld.h"

#include "data/Connection.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A message in the modem's store, and the row of SMS_Received that comes of it.
struct Filing {
    QByteArray sender;
    QByteArray body;
    std::string names; ///< FraNummerKort|Etternavn|Fornavn
    std::string text;
};

const std::string kNobody = "45678|?|?";
const Filing kFilings[] = {
    {"+4799999999", "Hei", "99999999|?|?", "Hei"},
    {"+4791111111", "Hei", "91111111|Berg|Anne", "Hei"},
    {"+4792222222", "Hei", "92222222|Dahl|?", "Hei"},
    {InboundWorld::kDoor, "Hei", "90000001|Hovedport| ", "Hei"}, // and a person without a name
    {InboundWorld::kBackDoor, "Hei", "90000002|?| ", "Hei"},
    {"12345678", "Hei", kNobody, "Hei"},
    {"+471234567890123", "Hei", "123456789|?|?", "Hei"},
    {"A, B", "Hei", "B|?|?", "Hei"},
    {"O'Hara", "Hei", "ara|?|?", "Hei"},
    {"", "Hei", "|?|?", "Hei"},
    {"12345678", "En\nto\ntre", kNobody, "En\r\nto\r\ntre"},
    {"12345678", "D\x0cr {r \x11pen \x1c\x1d\x0e\x0f |\\", kNobody, "Dør är _pen ÆæÅå öÖ"},
    {"12345678", "\x80\xe6\xff", kNobody, "€æÿ"},
    {"12345678", "\x1b!", kNobody, std::string(1, '\0') + "!"},
    {"12345678", QByteArray(255, 'x'), kNobody, std::string(255, 'x')},
    {"12345678", QByteArray(256, 'x'), kNobody, ""},
    {"12345678", "Alt er OK, ingen ERROR", kNobody, "Alt er OK, ingen ERROR"},
    {"12345678", "", kNobody, ""},
    {"12345678", "Se +CMGL: 9,\"REC READ\",\"+4790000002\",", kNobody,
     "Se +CMGL: 9,\"REC READ\",\"+4790000002\","}};

TEST(MessageReader, FilesAMessageAsItCame)
{
    InboundWorld world;
    for (const Filing &filing : kFilings) {
        SCOPED_TRACE((filing.sender + ": " + filing.body).constData());
        world.empty();
        world.inCatalogue(u"+4791111111"_qs, u"Berg"_qs, u"Anne"_qs);
        world.inCatalogue(u"+4792222222"_qs, u"Dahl"_qs, u""_qs);
        world.inCatalogue(QString::fromLatin1(InboundWorld::kDoor), u""_qs, u""_qs);
        world.doorSays(filing.body, filing.sender);
        EXPECT_THAT(world.filed(), ElementsAre(filing.sender.toStdString() + '|' + filing.names +
                                               "|26/12/01,12:34:56|" + filing.text));
        EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=7"));
        EXPECT_EQ(world.module.SenderNumber, QString::fromLatin1(filing.sender));
    }
}

struct Odd {
    int index;
    QByteArray record;
    std::vector<std::string> filed;
};

const Odd kOddRecords[] = {
    {3, "+CMGL: 3,\"STO SENT\",\"+4790000001\",,\r\nHei\r\n", {}},
    {9,
     "+CMGL: 9,\"REC UNREAD\",6,45,,,\"26/12/01,12:34:56+04\",\"26/12/01,12:34:59+04\",0\r\n",
     {}},
    {0, "+CMGL: 0,\"REC READ\",\"+4790000001\",,\"26/12/01,12:34:56+04\"\r\nHei\r\n", {}},
    {4,
     "+CMGL: 4,\"REC READ\",\"+4790000001\",,\r\nHei\r\n",
     {"+4790000001|90000001|Hovedport| ||Hei"}},
    // The sender of the message before stays where none can be cut.
    {5,
     "+CMGL: 5,\"REC READ\",\"+47900/12/01,12:34:56\r\nHei\r\n",
     {"+4798765432|98765432|?|?|00/12/01,12:34:56|Hei"}},
    {6,
     "+CMGL: 6,\"REC READ\",\"+4790000001\",\"Port\",\"26/12/01,12:34:56+04\",145,3\r\nHei\r\n",
     {"+4790000001|90000001|Hovedport| |26/12/01,12:34:56|Hei"}}};

TEST(OddRecord, IsDeletedAndFiledOnlyAsAMessage)
{
    InboundWorld world;
    for (const Odd &odd : kOddRecords) {
        SCOPED_TRACE(odd.record.constData());
        world.empty();
        world.store[odd.index] = odd.record;
        world.lists();
        EXPECT_EQ(world.filed(), odd.filed);
        EXPECT_THAT(world.commands, ElementsAre("AT+CMGD=" + QByteArray::number(odd.index)));
        EXPECT_EQ(world.module.RefreshPending, !odd.filed.empty());
        EXPECT_EQ(world.view.panels[2], u"Klar for innkommende SMS"_qs);
    }
}

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

/// TimerCom, the send timer, ReadingMessages.
using Moment = std::tuple<bool, bool, bool>;

struct Coupling {
    QByteArray sender;
    QByteArray body;
    Moment moment; ///< what stands of the modem side while the routine is still at work
};

const Coupling kCouplings[] = {
    {"12345678", "Hei", {false, false, true}},
    {"12345678", "Sm\xf8r", {true, true, false}},
    {"O'Hara", "Hei", {true, true, false}},
    {"12345678", "OK her", {false, true, false}},
    {"12345678", "ERROR 12", {false, true, true}},
    {"12345678", "+CMTI er kjedelig", {false, true, true}},
    // Only what the family for added users leaves of the text comes to the watcher again.
    {"12345678", "Port\n91234567 er lagt til A-2 OK", {false, true, false}}};

TEST(WhileReading, TimersStandAsTheTextCommands)
{
    InboundWorld world;
    for (const Coupling &coupling : kCouplings) {
        SCOPED_TRACE(coupling.body.constData());
        world.empty();
        Moment moment;
        world.link.pace.restart(60s);
        world.shown = [&] {
            moment = {world.link.TimerCom->isEnabled(), world.link.pace.isRunning(),
                      world.link.flags.ReadingMessages};
        };
        world.doorSays(coupling.body, coupling.sender);
        EXPECT_EQ(moment, coupling.moment);
        EXPECT_TRUE(world.link.TimerCom->isEnabled());
        EXPECT_FALSE(world.link.flags.ReadingMessages);
        EXPECT_EQ(world.link.pace.interval(), 3000ms);
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
