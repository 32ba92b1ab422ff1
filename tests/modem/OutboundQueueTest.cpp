#include "ModemWorld.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace {

const QString kDoor = u"+4790000001"_qs;
const QString kOtherDoor = u"+4790000002"_qs;
const QDate kToday(2026, 12, 1);

struct Queue : testing::Test, ModemWorld {
    Queue()
    {
        ready(false);
        link.pace.restart(4500ms);
    }
    QStringList sent(const QString &columns)
    {
        return rows(u"SELECT "_qs + columns + u" FROM SMS_Sent ORDER BY ID"_qs);
    }
};

TEST_F(Queue, WritesAWholeRowAndGivesAWaitingTextToTheNewRecipient)
{
    const QString columns =
        u"TilNummer, TilNummerKort, Etternavn, Fornavn, Dato, DatoLNG, SMS_Text, CMGS"_qs;
    link.queue.QueueOutboundSms(u"+479123456789012"_qs, u"Hei Åse"_qs, u"Berg"_qs, u"Åse"_qs);
    EXPECT_EQ(sent(columns),
              QStringList{u"+479123456789012|912345678|Berg|Åse|2026-12-01|46357|Hei Åse|"
                          "UNSENT"_qs});
    EXPECT_EQ(link.pace.interval(), 3000ms);
    link.pace.restart(30000ms);
    link.flags.QueuePending = true; // the time between two messages stays
    link.queue.QueueOutboundSms(u"+4792222222"_qs, u" HEI ÅSE "_qs, {}, {});
    EXPECT_EQ(sent(columns),
              QStringList{u"+4792222222|92222222|Berg|Åse|2026-12-01|46357|Hei Åse|UNSENT"_qs});
    EXPECT_EQ(link.pace.interval(), 30000ms);
}

TEST_F(Queue, KeepsACommandForEachDoor)
{
    const QString command = u"I 91234567*25"_qs;
    const QString longNumber = u"+479000000212345"_qs; // a door's short number is cut nowhere
    link.queue.queueDoorCommand(kDoor, u"Hovedport"_qs, command, kToday, u"UNSENT"_qs);
    link.queue.queueDoorCommand(longNumber, u"Bakdør"_qs, command, kToday, u"UNSENT"_qs);
    link.queue.queueDoorCommand(longNumber, u"Port"_qs, command, kToday.addDays(3), u"SLETTET"_qs);
    EXPECT_EQ(sent(u"TilNummer, TilNummerKort, Etternavn, Fornavn, Dato, DatoLNG, CMGS"_qs),
              (QStringList{u"+4790000001|90000001|Hovedport||2026-12-01|46357|UNSENT"_qs,
                           u"+479000000212345|9000000212345|Port||2026-12-04|46360|SLETTET"_qs}));
    EXPECT_EQ(link.pace.interval(), 4500ms) << "commands leave the pace alone";
}

TEST_F(Queue, RefusesASingleQuoteAndKeepsTheOutboxUsable)
{
    EXPECT_THROW(link.queue.QueueOutboundSms(kDoor, u"l'heure"_qs, {}, {}), RuntimeFailure);
    EXPECT_EQ(sent(u"ID"_qs), QStringList());
    link.queue.QueueOutboundSms(kDoor, u"hei"_qs, {}, {});
    EXPECT_EQ(sent(u"SMS_Text"_qs), QStringList{u"hei"_qs});
}

TEST_F(Queue, TellsInTheRowWhatBecameOfIt)
{
    const struct {
        bool reports;
        QByteArray result;
        QString row; ///< CMGS, TimeSent, TimeReceived, ReceivedStatus
        bool sent;
        QString number = kDoor;
    } kOutcomes[] = {{true, "\r\n+CMGS: 17\r\n\r\nOK\r\n", u"17|||"_qs, true},
                     {true, "\r\nERROR\r\n", u"ERROR|||"_qs, true},
                     {true, "", u"Error|||"_qs, true},
                     {false, "\r\n+CMGS: 17\r\n\r\nOK\r\n", u"17:OK|NA|NA|NA"_qs, true},
                     {false, "\r\n+CMGS: 0\r\n\r\nOK\r\n", u"0:OK|NA|NA|NA"_qs, true},
                     {false, "\r\n+CMGS: 256\r\n\r\nOK\r\n", u"256:OK|NA|NA|NA"_qs, true},
                     {false, "\r\n+CMGS: 257\r\n\r\nOK\r\n", u"257|NA|NA|NA"_qs, true},
                     // Not mended: the message is tried again on each tick.
                     {false, "\r\nERROR\r\n", u"UNSENT|||"_qs, false},
                     {false, "", u"UNSENT|||"_qs, false},
                     // A recipient that is no number is never tried.
                     {true, "", u"|||"_qs, true, u"Portner"_qs},
                     {false, "", u"UNSENT|||"_qs, false, u"Portner"_qs}};
    for (const auto &expected : kOutcomes) {
        SCOPED_TRACE(expected.row.toStdString());
        database.look().run(u"DELETE FROM SMS_Sent"_qs);
        waits(u"r10"_qs, 46357, u"UNSENT"_qs, expected.number);
        module.SmsReportOn = expected.reports;
        comModem.result = expected.result;
        link.flags.QueuePending = false;
        link.pace.restart(4500ms);
        link.TimerCom->setEnabled(false);
        link.queue.SendQueuedSms();
        EXPECT_EQ(sent(u"CMGS, TimeSent, TimeReceived, ReceivedStatus"_qs),
                  QStringList{expected.row});
        EXPECT_EQ(link.flags.QueuePending, expected.sent);
        EXPECT_EQ(link.pace.interval(), expected.sent ? 30000ms : 4500ms);
        EXPECT_FALSE(link.flags.QueueRunning);
        EXPECT_TRUE(link.TimerCom->isEnabled());
    }
}

TEST_F(Queue, SendsTheEarliestDayFirstInTheOrderOfTheTableAndThenSlowsDown)
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
    EXPECT_TRUE(link.flags.QueuePending);
    link.pace.restart(4500ms);
    link.queue.SendQueuedSms();
    EXPECT_EQ(comModem.texts.size(), 3);
    EXPECT_FALSE(link.flags.QueuePending);
    EXPECT_FALSE(link.flags.QueueRunning);
    EXPECT_EQ(link.pace.interval(), 6750ms);
}

TEST_F(Queue, MarksTheUserOfTheDoorAlone)
{
    const QByteArray accepted = "\r\n+CMGS: 17\r\n\r\nOK\r\n";
    const struct {
        QString text;
        QByteArray result;
        QString status; ///< of the two users on the door
    } kCommands[] = {{u"I 91234567>26120100<26120324"_qs, accepted, u"Registrerer,NY"_qs},
                     {u"U 91234567"_qs, accepted, u"Sletter,NY"_qs},
                     {u"i 701234567*25"_qs, accepted, u"NY,Registrerer"_qs},
                     {u"u 701234567"_qs, accepted, u"NY,Sletter"_qs},
                     {u"U 99999999"_qs, accepted, u"NY,NY"_qs},
                     {u"Hei"_qs, accepted, u"NY,NY"_qs},
                     {u"A 91234567"_qs, accepted, u"NY,NY"_qs},
                     {u"U 91234567"_qs, "\r\nERROR\r\n", u"NY,NY"_qs},
                     {u"U 91234567"_qs, "", u"NY,NY"_qs}};
    module.SmsReportOn = true;
    database.add(u"Katalog"_qs, u"Bruker,BrukerKort"_qs, {u"+46701234567"_qs, u"701234567"_qs});
    for (const QString &number : {u"+4791234567"_qs, u"+46701234567"_qs}) {
        for (const QString &door : {kOtherDoor, kDoor}) {
            database.add(u"TBLbrukere"_qs, u"KeyBruker,KeyNummer"_qs, {number, door});
        }
    }
    for (const auto &command : kCommands) {
        SCOPED_TRACE((command.text + QString::fromLatin1(command.result)).toStdString());
        database.look().run(u"UPDATE TBLbrukere SET Status = 'NY'"_qs);
        waits(command.text);
        comModem.result = command.result;
        link.queue.SendQueuedSms();
        EXPECT_EQ(rows(u"SELECT group_concat(Status) FROM TBLbrukere GROUP BY KeyNummer"_qs),
                  (QStringList{command.status, u"NY,NY"_qs}));
    }
}

TEST_F(Queue, ClosesTheRowThatItSentWhateverScreensDoMeanwhile)
{
    waits(u"hei"_qs, 46357);
    clock.after(10ms, [&] {
        link.queue.QueueOutboundSms(kOtherDoor, u"annet"_qs, {}, {});
        recordsets.OpenRecordsets();
    });
    link.queue.SendQueuedSms();
    EXPECT_EQ(sent(u"SMS_Text, CMGS"_qs), (QStringList{u"hei|17:OK"_qs, u"annet|UNSENT"_qs}));
}

TEST_F(Queue, LeavesTheOthersWaitingWhenTheRowIsWithdrawnDuringTheSend)
{
    waits(u"hei"_qs, 46357);
    waits(u"annet"_qs, 46357);
    clock.after(10ms, [&] { database.look().run(u"DELETE FROM SMS_Sent WHERE ID = 1"_qs); });
    link.queue.SendQueuedSms();
    EXPECT_EQ(sent(u"SMS_Text, CMGS"_qs), QStringList{u"annet|UNSENT"_qs});
    EXPECT_FALSE(link.flags.QueueRunning);
    EXPECT_TRUE(link.TimerCom->isEnabled());
}

} // namespace
