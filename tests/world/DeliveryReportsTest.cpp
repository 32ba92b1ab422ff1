#include "simulator/Personalities.h"
#include "support/World.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

const QString kPerson = QStringLiteral("+4792222222");
const QString kNobody = QStringLiteral("+4799999999");

/// A program that asks for reports, and a person's phone.
class DeliveryReports : public testing::Test {
protected:
    DeliveryReports() { world.network.addPhone(kPerson, {}); }

    /// Sends it and lets its report come.
    void send(const QString &text, const QString &to = kPerson)
    {
        world.modem.setNextReference(45);
        world.execute(u"INSERT INTO SMS_Sent (TilNummer, SMS_Text, DatoLNG, CMGS) "
                      "VALUES ('%1', '%2', 46357, 'UNSENT')"_qs.arg(to, text));
        world.clock.run(3min);
    }
    QString row(const QString &text)
    {
        return world
            .rows(u"SELECT CMGS, ReceivedStatus, TimeSent, TimeReceived FROM SMS_Sent WHERE "
                  "SMS_Text = '%1'"_qs.arg(text))
            .join(u';');
    }

    World world{{.reports = true}};
};

struct ReportCase {
    const char *name;
    QString to;
    ReportHabits habits;
    const char *words; ///< of the modem's personality
    const char *row;   ///< CMGS, ReceivedStatus, TimeSent and TimeReceived, as a pattern
};

const ReportCase kCases[] = {
    {"delivered", kPerson, {}, "", "45:OK\\|OK\\|STAMP\\|STAMP"},
    {"nobodyAtTheNumber", kNobody, {}, "", "45:Fail 7\\|Fail 7\\|STAMP\\|STAMP"},
    {"oneDigit", kPerson, {.status = 2}, "", "45:Fail 2\\|Fail 2\\|STAMP\\|STAMP"},
    // Of two digits the last is seen: given up for good, and yet it stands as delivered.
    {"lastDigitIsNought", kPerson, {.status = 70}, "", "45:OK\\|OK\\|STAMP\\|STAMP"},
    {"kept", kPerson, {.copies = 0}, "", "45\\|\\|\\|"},
    {"twice", kPerson, {.copies = 2}, "", "45:OK\\|OK\\|STAMP\\|STAMP"},
    // The report lies in the store before the modem answers the submission.
    {"aheadOfTheAnswer", kPerson, {}, "lateanswer", "45:OK\\|OK\\|STAMP\\|STAMP"},
    {"inTheMiddleOfTheSubmission", kPerson, {}, "noticeinsubmission", "45:OK\\|OK\\|STAMP\\|STAMP"},
    // A recipient takes the two empty fields that the first stamp is looked for behind.
    {"namesItsRecipient", kPerson, {}, "recipient", "45:OK\\|OK\\|MGL: 1,\"REC UNREA\\|STAMP"},
};

} // namespace

TEST_F(DeliveryReports, CloseTheirRow)
{
    for (const ReportCase &each : kCases) {
        SCOPED_TRACE(each.name);
        const QString text = QString::fromUtf8(each.name);
        world.network.setReportHabits(each.habits);
        world.modem.faults() = {};
        world.modem.faults().unsolicited = "+CDSI: \"SM\",1";
        if (*each.words != '\0') {
            addPersonality(world.modem.faults(), QString::fromUtf8(each.words));
        }
        send(text, each.to);
        const QString pattern =
            QString::fromUtf8(each.row).replace(u"STAMP"_qs, u"26/12/01,09:\\d\\d:\\d\\d"_qs);
        EXPECT_TRUE(QRegularExpression(u'^' + pattern + u'$').match(row(text)).hasMatch())
            << row(text).toStdString();
        // Out of the way of the next case's reference.
        world.execute(u"UPDATE SMS_Sent SET CMGS = CMGS || ':' WHERE CMGS = '45'"_qs);
    }
    EXPECT_TRUE(world.modem.store().records().empty());
    EXPECT_EQ(world.value(u"SELECT count(*) FROM SMS_Received"_qs), u"0");
}

TEST_F(DeliveryReports, LeaveTheUserAndTheQueueAlone)
{
    world.network.setReportHabits({.status = 67});
    world.registerUser(u"+4791234567"_qs);
    EXPECT_TRUE(world.runUntilStatus(u"+4791234567"_qs, u"Aktiv "_qs));
    world.clock.run(3min);
    EXPECT_EQ(world.received(u"+4790000001"_qs).size(), 1) << "nothing is sent again";
    EXPECT_EQ(world.value(u"SELECT CMGS FROM SMS_Sent"_qs), u"0:Fail 7");
    EXPECT_EQ(world.status(u"+4791234567"_qs), u"Aktiv ");
}
