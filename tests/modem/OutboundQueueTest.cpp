#include "ModemWorld.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace {

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

// "R5" waits since yesterday, for another door and then for the same one, when "r5" is queued. The
// rows are TilNummer, TilNummerKort, Etternavn, Fornavn, Dato and CMGS.
TEST_F(Queue, HasFourFormsWhichDifferOnPurpose)
{
    const QString longNumber = u"+47900000012345"_qs;
    const QDate day(2026, 12, 24);
    const QString others = kOtherDoor + u"|old|Berg|Ola|2026-11-30|UNSENT"_qs;
    const struct {
        const char *name;
        OutboundSms sms;
        QString others; ///< the other door's row, if it stays
        bool hurriesAdding;
        QString added;
        QString refreshed; ///< the door's own row
        bool hurriesRefreshing;
    } forms[] = {
        {"free text",
         OutboundSms::freeText(longNumber, u"r5"_qs, u"Port"_qs, u"Per"_qs, kToday),
         {},
         true,
         longNumber + u"|900000012|Port|Per|2026-12-01|UNSENT"_qs,
         longNumber + u"|900000012|Port|Per|2026-12-01|UNSENT"_qs,
         true},
        {"register", OutboundSms::doorCommand(longNumber, u"Port"_qs, u"r5"_qs, day, u"SLETTET"_qs),
         others, false, longNumber + u"|900000012345|Port||2026-12-24|SLETTET"_qs,
         longNumber + u"|old|Port|Ola|2026-12-24|SLETTET"_qs, false},
        {"setting", OutboundSms::doorSetting(longNumber, u"Port"_qs, u"r5"_qs, kToday), others,
         false, longNumber + u"|900000012345|Port||2026-12-01|UNSENT"_qs,
         longNumber + u"|old|Port|Ola|2026-12-01|UNSENT"_qs, false},
        {"log request", OutboundSms::logRequest(longNumber, u"Port"_qs, u"r5"_qs, kToday), others,
         true, longNumber + u"|900000012345|Port||2026-12-01|UNSENT"_qs,
         longNumber + u"|old|Port|Ola|2026-12-01|UNSENT"_qs, false},
    };
    const auto queued = [&](const QString &number, const OutboundSms &sms) {
        database.look().run(u"DELETE FROM SMS_Sent"_qs);
        database.add(
            u"SMS_Sent"_qs, u"TilNummer,TilNummerKort,Etternavn,Fornavn,Dato,SMS_Text,CMGS"_qs,
            {number, u"old"_qs, u"Berg"_qs, u"Ola"_qs, u"2026-11-30"_qs, u"R5"_qs, u"UNSENT"_qs});
        recordsets.OpenRecordsets();
        link.pace.restart(4500ms);
        queueSms(recordsets.rsSmsOutbox, link.pace, sms);
        return sent(u"TilNummer, TilNummerKort, Etternavn, Fornavn, Dato, CMGS"_qs);
    };
    for (const auto &form : forms) {
        SCOPED_TRACE(form.name);
        QStringList expected{form.others, form.added};
        expected.removeAll(QString());
        EXPECT_EQ(queued(kOtherDoor, form.sms), expected);
        EXPECT_EQ(link.pace.interval() == 3000ms, form.hurriesAdding);
        EXPECT_EQ(queued(longNumber, form.sms), QStringList{form.refreshed});
        EXPECT_EQ(sent(u"SMS_Text"_qs), QStringList{form.others.isEmpty() ? u"R5"_qs : u"r5"_qs});
        EXPECT_EQ(link.pace.interval() == 3000ms, form.hurriesRefreshing);
    }
}

TEST_F(Queue, ClosesTheRowThatItSentWhateverScreensDoMeanwhile)
{
    const auto sendsWhile = [&](const std::function<void()> &happens) {
        clock.after(10ms, happens);
        link.queue.SendQueuedSms();
        EXPECT_EQ(link.pace.interval(), 30s) << "it went out all the same";
        EXPECT_FALSE(link.flags.QueueRunning);
        EXPECT_TRUE(link.TimerCom->isEnabled());
        return sent(u"SMS_Text, CMGS"_qs).join(u", "_qs);
    };
    waits(u"hei"_qs);
    EXPECT_EQ(sendsWhile([&] {
                  link.queue.QueueOutboundSms(kOtherDoor, u"annet"_qs, {}, {});
                  recordsets.OpenRecordsets();
              }),
              u"hei|0:OK, annet|UNSENT"_qs);
    waits(u"siste"_qs, 46360);
    EXPECT_EQ(sendsWhile([&] { database.look().run(u"DELETE FROM SMS_Sent WHERE ID = 2"_qs); }),
              u"hei|0:OK, siste|UNSENT"_qs);

    // The same row of another file is another message.
    TestDatabase other;
    other.add(u"SMS_Sent"_qs, u"ID,TilNummer,SMS_Text,CMGS"_qs,
              {3, u"+4790000001"_qs, u"siste"_qs, u"UNSENT"_qs});
    recordsets.OpenRecordsets();
    sendsWhile([&] {
        other.use(module);
        recordsets.OpenRecordsets();
    });
    EXPECT_EQ(other.rows(u"SELECT CMGS FROM SMS_Sent"_qs), QStringList{u"UNSENT"_qs});
}

TEST_F(Queue, WritesLaterWhatBecameOfAnAcceptedMessageAndSaysOnceThatItCannot)
{
    waits(u"I 912345678"_qs);
    database.look().run(u"CREATE TRIGGER locked BEFORE UPDATE ON SMS_Sent BEGIN "
                        "SELECT RAISE(ABORT, 'locked'); END"_qs);
    link.queue.SendQueuedSms();
    EXPECT_EQ(sent(u"CMGS"_qs), QStringList{u"UNSENT"_qs});
    EXPECT_EQ(link.pace.interval(), 4500ms);
    EXPECT_FALSE(link.flags.QueuePending);
    person.answers(u"locked"_qs); // once
    clock.run(20s);
    EXPECT_EQ(person.texts.size(), 1);
    database.look().run(u"DROP TRIGGER locked"_qs);
    link.queue.SendQueuedSms();
    EXPECT_EQ(sent(u"CMGS"_qs), QStringList{u"0:OK"_qs});
    EXPECT_EQ(port.written.count("AT+CMGS"), 1);
    EXPECT_EQ(link.pace.interval(), 30s);
    // No user can be looked up by this one; the next message keeps its distance all the same.
    waits(u"I 91'2"_qs);
    link.pace.restart(4500ms);
    link.queue.SendQueuedSms();
    EXPECT_EQ(sent(u"CMGS"_qs), (QStringList{u"0:OK"_qs, u"1:OK"_qs}));
    EXPECT_EQ(link.pace.interval(), 30s);
    EXPECT_TRUE(link.flags.QueuePending);
    link.queue.SendQueuedSms(); // nothing waits any more: a click may hurry it again
    EXPECT_FALSE(link.flags.QueuePending);
}

TEST_F(Queue, LeavesTheRowWaitingWhenTheProgramEndsInTheMiddle)
{
    waits(u"hei"_qs);
    module.SmsReportOn = true;
    clock.after(10ms, [this] { clock.end(); });
    EXPECT_THROW(link.queue.SendQueuedSms(), ProgramEnds);
    clock.goOn();
    EXPECT_EQ(sent(u"CMGS"_qs), QStringList{u"UNSENT"_qs});
}

} // namespace
