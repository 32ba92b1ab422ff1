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
        return database.rows(u"SELECT "_qs + columns + u" FROM SMS_Sent ORDER BY ID"_qs);
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

TEST_F(Queue, SendsTheEarliestDayFirstInTheOrderOfTheTableAndThenSlowsDown)
{
    waits(u"late"_qs, 46360);
    waits(u"withdrawn"_qs, 46300, u"SLETTET"_qs);
    waits(u"first of the day"_qs, 46357);
    waits(u"second of the day"_qs, 46357);
    comModem.result = "\r\nERROR\r\n";
    link.queue.SendQueuedSms();
    EXPECT_FALSE(link.flags.QueuePending);
    EXPECT_EQ(link.pace.interval(), 4500ms) << "what stays unsent is tried again on each tick";
    comModem.result = "\r\n+CMGS: 17\r\n\r\nOK\r\n";
    comModem.texts.clear();
    for (int i = 0; i < 3; ++i) {
        link.queue.SendQueuedSms();
        EXPECT_EQ(link.pace.interval(), 30000ms);
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
