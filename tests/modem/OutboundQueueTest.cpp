#include "ModemWorld.h"

#include "data/Connection.h"
#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace {

const QString kDoor = u"+4790000001"_qs;
const QString kOtherDoor = u"+4790000002"_qs;
const QDate kToday(2026, 12, 1);

struct Queue : testing::Test, ModemWorld {
    Queue()
    {
        openCom();
        module.ModemReady = true;
        link.pace.restart(4500ms);
    }

    QStringList rows(const QString &columns)
    {
        QStringList result;
        database.look().run(u"SELECT "_qs + columns + u" FROM SMS_Sent ORDER BY ID"_qs, {},
                            [&](const QVariantList &values) {
                                QStringList row;
                                for (const QVariant &value : values) {
                                    row += value.toString();
                                }
                                result += row.join(u'|');
                            });
        return result;
    }
    void waits(const QString &text, int DatoLNG = 46357, const QString &CMGS = u"UNSENT"_qs,
               const QString &TilNummer = kDoor)
    {
        database.add(u"SMS_Sent"_qs, u"TilNummer,SMS_Text,DatoLNG,CMGS"_qs,
                     {TilNummer, text, DatoLNG, CMGS});
        recordsets.OpenRecordsets();
    }
};

TEST_F(Queue, WritesAWholeRow)
{
    link.queue.QueueOutboundSms(u"+479123456789012"_qs, u"Hei på deg"_qs, u"Berg"_qs, u"Åse"_qs);
    EXPECT_EQ(
        rows(u"TilNummer, TilNummerKort, Etternavn, Fornavn, Dato, DatoLNG, SMS_Text, CMGS"_qs),
        QStringList{u"+479123456789012|912345678|Berg|Åse|2026-12-01|46357|Hei på deg|"
                    u"UNSENT"_qs});
    EXPECT_EQ(link.pace.interval(), 3000ms);
}

TEST_F(Queue, GivesAWaitingTextToTheNewRecipient)
{
    link.queue.QueueOutboundSms(u"+4791111111"_qs, u"Hei Åse"_qs, u"Berg"_qs, u"Åse"_qs);
    link.queue.QueueOutboundSms(u"+4792222222"_qs, u" HEI ÅSE "_qs, {}, {});
    EXPECT_EQ(rows(u"TilNummer, TilNummerKort, SMS_Text, Etternavn"_qs),
              QStringList{u"+4792222222|92222222|Hei Åse|Berg"_qs});
}

TEST_F(Queue, KeepsACommandForEachDoor)
{
    const QString command = u"I 91234567*25"_qs;
    const QString longNumber = u"+479000000212345"_qs; // a door's short number is cut nowhere
    link.queue.queueDoorCommand(kDoor, u"Hovedport"_qs, command, kToday, u"UNSENT"_qs);
    link.queue.queueDoorCommand(longNumber, u"Bakdør"_qs, command, kToday, u"UNSENT"_qs);
    link.queue.queueDoorCommand(longNumber, u"Port"_qs, command, kToday.addDays(3), u"SLETTET"_qs);
    EXPECT_EQ(rows(u"TilNummer, TilNummerKort, Etternavn, Fornavn, Dato, DatoLNG, CMGS"_qs),
              (QStringList{u"+4790000001|90000001|Hovedport||2026-12-01|46357|UNSENT"_qs,
                           u"+479000000212345|9000000212345|Port||2026-12-04|46360|SLETTET"_qs}));
    EXPECT_EQ(link.pace.interval(), 4500ms) << "commands leave the pace alone";
}

TEST_F(Queue, LeavesTheThirtySecondsBetweenMessagesAlone)
{
    link.flags.QueuePending = true;
    link.queue.QueueOutboundSms(kDoor, u"hei"_qs, {}, {});
    EXPECT_EQ(link.pace.interval(), 4500ms);
}

TEST_F(Queue, RefusesASingleQuoteAndKeepsTheOutboxUsable)
{
    EXPECT_THROW(link.queue.QueueOutboundSms(kDoor, u"l'heure"_qs, {}, {}), RuntimeFailure);
    EXPECT_EQ(rows(u"ID"_qs), QStringList());
    link.queue.QueueOutboundSms(kDoor, u"hei"_qs, {}, {});
    EXPECT_EQ(rows(u"SMS_Text"_qs), QStringList{u"hei"_qs});
}

struct Outcome {
    const char *name;
    bool reports;
    QByteArray result;
    QString row; ///< CMGS, TimeSent, TimeReceived, ReceivedStatus
    bool sent;
};

class SentRow : public testing::TestWithParam<Outcome>, public ModemWorld {};

TEST_P(SentRow, TellsWhatBecameOfIt)
{
    const Outcome &expected = GetParam();
    openCom();
    module.ModemReady = true;
    module.SmsReportOn = expected.reports;
    comModem.result = expected.result;
    link.pace.restart(4500ms);
    database.add(u"SMS_Sent"_qs, u"TilNummer,SMS_Text,DatoLNG,CMGS"_qs,
                 {kDoor, u"r10"_qs, 46357, u"UNSENT"_qs});
    recordsets.OpenRecordsets();
    link.queue.SendQueuedSms();
    EXPECT_EQ(database.single(u"SELECT CMGS || '|' || ifnull(TimeSent, '') || '|' || "
                              "ifnull(TimeReceived, '') || '|' || ifnull(ReceivedStatus, '') "
                              "FROM SMS_Sent"_qs),
              expected.row);
    EXPECT_EQ(link.flags.QueuePending, expected.sent);
    EXPECT_EQ(link.pace.interval(), expected.sent ? 30000ms : 4500ms);
    EXPECT_FALSE(link.flags.QueueRunning);
    EXPECT_TRUE(link.TimerCom->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(
    Results, SentRow,
    testing::Values(
        Outcome{"acceptedWithReport", true, "\r\n+CMGS: 17\r\n\r\nOK\r\n", u"17|||"_qs, true},
        Outcome{"refusedWithReport", true, "\r\nERROR\r\n", u"ERROR|||"_qs, true},
        Outcome{"unansweredWithReport", true, "", u"Error|||"_qs, true},
        Outcome{"acceptedWithout", false, "\r\n+CMGS: 17\r\n\r\nOK\r\n", u"17:OK|NA|NA|NA"_qs,
                true},
        Outcome{"zeroWithout", false, "\r\n+CMGS: 0\r\n\r\nOK\r\n", u"0:OK|NA|NA|NA"_qs, true},
        Outcome{"highestWithout", false, "\r\n+CMGS: 256\r\n\r\nOK\r\n", u"256:OK|NA|NA|NA"_qs,
                true},
        Outcome{"numberOverRangeWithout", false, "\r\n+CMGS: 257\r\n\r\nOK\r\n", u"257|NA|NA|NA"_qs,
                true},
        // Not mended: the message is tried again on each tick.
        Outcome{"refusedWithout", false, "\r\nERROR\r\n", u"UNSENT|||"_qs, false},
        Outcome{"unansweredWithout", false, "", u"UNSENT|||"_qs, false}),
    [](const auto &each) { return each.param.name; });

TEST_F(Queue, WritesAnEmptyResultOnlyWithReports)
{
    // A recipient that is no number is never tried.
    for (const bool reports : {false, true}) {
        database.look().run(u"DELETE FROM SMS_Sent"_qs);
        waits(u"hei"_qs, 46357, u"UNSENT"_qs, u"Portner"_qs);
        module.SmsReportOn = reports;
        link.queue.SendQueuedSms();
        EXPECT_EQ(rows(u"CMGS"_qs), QStringList{reports ? QString() : u"UNSENT"_qs});
        EXPECT_EQ(comModem.commands.size(), 0);
    }
}

TEST_F(Queue, SendsTheEarliestDayFirstAndADayInTheOrderOfTheTable)
{
    waits(u"late"_qs, 46360);
    waits(u"withdrawn"_qs, 46300, u"SLETTET"_qs);
    waits(u"first of the day"_qs, 46357);
    waits(u"second of the day"_qs, 46357);
    for (int i = 0; i < 3; ++i) {
        link.queue.SendQueuedSms();
        recordsets.OpenRecordsets();
    }
    EXPECT_EQ(comModem.texts, (QList<QByteArray>{"first of the day", "second of the day", "late"}));
    link.queue.SendQueuedSms();
    EXPECT_EQ(comModem.texts.size(), 3);
}

TEST_F(Queue, SlowsDownAndEndsTheSpellWhenNothingWaits)
{
    link.flags.QueuePending = true;
    waits(u"done"_qs, 46357, u"17:OK"_qs);
    link.queue.SendQueuedSms();
    EXPECT_FALSE(link.flags.QueuePending);
    EXPECT_FALSE(link.flags.QueueRunning);
    EXPECT_EQ(link.pace.interval(), 6750ms);
    EXPECT_EQ(port.written, QByteArray());
    EXPECT_TRUE(link.TimerCom->isEnabled());
}

struct Command {
    const char *name;
    QString text;
    QByteArray result;
    QString status; ///< of the two users on the door
};

class Marked : public testing::TestWithParam<Command>, public ModemWorld {};

TEST_P(Marked, WritesTheUserOfTheDoorAlone)
{
    openCom();
    module.ModemReady = true;
    module.SmsReportOn = true;
    comModem.result = GetParam().result;
    database.add(u"Katalog"_qs, u"Bruker,BrukerKort"_qs, {u"+46701234567"_qs, u"701234567"_qs});
    const auto user = [&](const QString &number, const QString &door) {
        database.add(u"TBLbrukere"_qs, u"KeyBruker,KeyNummer,Status"_qs, {number, door, u"NY"_qs});
    };
    user(u"+4791234567"_qs, kOtherDoor);
    user(u"+4791234567"_qs, kDoor);
    user(u"+46701234567"_qs, kOtherDoor);
    user(u"+46701234567"_qs, kDoor);
    database.add(u"SMS_Sent"_qs, u"TilNummer,SMS_Text,DatoLNG,CMGS"_qs,
                 {kDoor, GetParam().text, 46357, u"UNSENT"_qs});
    recordsets.OpenRecordsets();
    link.queue.SendQueuedSms();
    const auto statuses = [&](const QString &door) {
        return database.single(
            u"SELECT group_concat(Status) FROM TBLbrukere WHERE KeyNummer = ?"_qs, {door});
    };
    EXPECT_EQ(statuses(kDoor), GetParam().status);
    EXPECT_EQ(statuses(kOtherDoor), u"NY,NY"_qs);
    EXPECT_TRUE(link.flags.QueuePending);
}

const QByteArray kAccepted = "\r\n+CMGS: 17\r\n\r\nOK\r\n";
INSTANTIATE_TEST_SUITE_P(
    Commands, Marked,
    testing::Values(
        Command{"registers", u"I 91234567>26120100<26120324"_qs, kAccepted, u"Registrerer,NY"_qs},
        Command{"deletes", u"U 91234567"_qs, kAccepted, u"Sletter,NY"_qs},
        Command{"foreignByTheCatalogue", u"i 701234567*25"_qs, kAccepted, u"NY,Registrerer"_qs},
        Command{"deletesForeign", u"u 701234567"_qs, kAccepted, u"NY,Sletter"_qs},
        Command{"unknownUser", u"U 99999999"_qs, kAccepted, u"NY,NY"_qs},
        Command{"freeText", u"Hei"_qs, kAccepted, u"NY,NY"_qs},
        Command{"otherCommand", u"A 91234567"_qs, kAccepted, u"NY,NY"_qs},
        Command{"refused", u"U 91234567"_qs, "\r\nERROR\r\n", u"NY,NY"_qs},
        Command{"unanswered", u"U 91234567"_qs, "", u"NY,NY"_qs}),
    [](const auto &each) { return each.param.name; });

TEST_F(Queue, ClosesTheRowThatItSentWhateverScreensDoMeanwhile)
{
    waits(u"hei"_qs, 46357);
    clock.after(10ms, [&] {
        link.queue.QueueOutboundSms(kOtherDoor, u"annet"_qs, {}, {});
        recordsets.OpenRecordsets();
    });
    link.queue.SendQueuedSms();
    EXPECT_EQ(rows(u"SMS_Text, CMGS"_qs), (QStringList{u"hei|17:OK"_qs, u"annet|UNSENT"_qs}));
}

TEST_F(Queue, LeavesTheOthersWaitingWhenTheRowIsWithdrawnDuringTheSend)
{
    waits(u"hei"_qs, 46357);
    waits(u"annet"_qs, 46357);
    clock.after(10ms, [&] { database.look().run(u"DELETE FROM SMS_Sent WHERE ID = 1"_qs); });
    link.queue.SendQueuedSms();
    EXPECT_EQ(rows(u"SMS_Text, CMGS"_qs), QStringList{u"annet|UNSENT"_qs});
    EXPECT_FALSE(link.flags.QueueRunning);
    EXPECT_TRUE(link.TimerCom->isEnabled());
}

TEST_F(Queue, EndsInSilenceWithoutADatabase)
{
    recordsets.rsSmsOutbox.close();
    link.queue.SendQueuedSms();
    EXPECT_FALSE(link.flags.QueueRunning);
    EXPECT_TRUE(link.TimerCom->isEnabled());
    EXPECT_EQ(link.pace.interval(), 4500ms);
}

TEST_F(Queue, LeavesTheRowWaitingWhenTheProgramEndsDuringTheSend)
{
    waits(u"hei"_qs);
    module.SmsReportOn = true;
    comModem.result = "";
    clock.after(5s, [&] { clock.end(); });
    EXPECT_THROW(link.queue.SendQueuedSms(), ProgramEnds);
    EXPECT_EQ(rows(u"CMGS"_qs), QStringList{u"UNSENT"_qs});
}

TEST_F(Queue, RepeatsARefusedMessageAtThePaceOfTheTimer)
{
    waits(u"hei"_qs);
    comModem.result = "\r\nERROR\r\n";
    clock.run(5min);
    EXPECT_GT(comModem.texts.size(), 10);
    EXPECT_EQ(comModem.texts.count("hei"), comModem.texts.size());
    EXPECT_EQ(rows(u"CMGS"_qs), QStringList{u"UNSENT"_qs});
}

TEST_F(Queue, SendsTwoMessagesThirtySecondsApart)
{
    waits(u"en"_qs);
    waits(u"to"_qs);
    QList<milliseconds> sentAt;
    port.onWrite = [&](const QByteArray &bytes) {
        comModem.hears(bytes);
        if (bytes.startsWith("AT+CMGS=")) {
            sentAt += clock.elapsed();
        }
    };
    clock.run(2min);
    ASSERT_EQ(sentAt.size(), 2);
    EXPECT_GE(sentAt[1] - sentAt[0], 30s);
    EXPECT_LT(sentAt[1] - sentAt[0], 31s);
    EXPECT_FALSE(link.flags.QueuePending);
}

} // namespace
