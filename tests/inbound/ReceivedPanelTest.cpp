#include "inbound/ReceivedPanel.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/qt/UpDown.h"
#include "support/Doubles.h"
#include "support/TestDatabase.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

class ReceivedPanelTest : public testing::Test {
protected:
    void fill(int messages)
    {
        for (int i = 1; i <= messages; ++i) {
            database.add(u"SMS_Received"_qs, u"FraNummer,Etternavn,Fornavn,Dato,SMS_Text"_qs,
                         {u"+479000000%1"_qs.arg(i), u"Port %1"_qs.arg(i), u" "_qs,
                          u"26/12/0%1,12:34:56"_qs.arg(i), u"Melding %1"_qs.arg(i)});
        }
        database.use(module);
        recordsets.display = [this] { panel.showCurrent(recordsets.rsSmsReceived); };
        recordsets.OpenRecordsets();
    }
    QString shownId() { return find<QLineEdit>(u"SMSRectxt_0"_qs)->text(); }
    template <typename Widget> Widget *find(const QString &name)
    {
        return panel.findChild<Widget *>(name);
    }
    void click(const QString &name) { find<QToolButton>(name)->click(); }

    VirtualClock clock;
    ScriptedOperator person{clock};
    TestDatabase database;
    Module1 module;
    Recordsets recordsets{module, person};
    ReceivedPanel panel{recordsets, person};
};

TEST_F(ReceivedPanelTest, ArrowsGoRoundPastEitherEndWithABeep)
{
    fill(3);
    EXPECT_EQ(shownId(), u"3"_qs);
    click(u"ArrowRight"_qs);
    EXPECT_EQ(shownId(), u"1"_qs);
    EXPECT_EQ(person.beeps, 1);
    click(u"ArrowLeft"_qs);
    EXPECT_EQ(shownId(), u"3"_qs);
    EXPECT_EQ(person.beeps, 2);
    click(u"ArrowLeft"_qs);
    EXPECT_EQ(shownId(), u"2"_qs);
    EXPECT_EQ(panel.messageOnScreen(), 2);
    EXPECT_EQ(person.beeps, 2);
}

TEST_F(ReceivedPanelTest, StepperStopsAtEitherEndWithABeep)
{
    fill(2);
    auto *const stepper = find<UpDown>(u"UpDown2"_qs);
    emit stepper->up();
    EXPECT_EQ(shownId(), u"2"_qs);
    EXPECT_EQ(person.beeps, 1);
    emit stepper->down();
    EXPECT_EQ(shownId(), u"1"_qs);
    EXPECT_EQ(person.beeps, 1);
    emit stepper->down();
    EXPECT_EQ(shownId(), u"1"_qs);
    EXPECT_EQ(person.beeps, 2);
    EXPECT_EQ(panel.messageOnScreen(), 1);
}

TEST_F(ReceivedPanelTest, NoMessagesNoBeep)
{
    fill(0);
    click(u"ArrowLeft"_qs);
    click(u"ArrowRight"_qs);
    emit find<UpDown>(u"UpDown2"_qs)->up();
    emit find<UpDown>(u"UpDown2"_qs)->down();
    EXPECT_EQ(person.beeps, 0);
    EXPECT_EQ(shownId(), QString());
}

TEST_F(ReceivedPanelTest, PhoneShowsTheFieldsInItsOwnOrder)
{
    fill(1);
    EXPECT_EQ(find<QPlainTextEdit>(u"PhoneDisplay"_qs)->toPlainText(),
              u"Nummer: 1\nFra  : +4790000001\nNavn: Port 1\n26/12/01,12:34:56\n\nMelding 1"_qs);
}

TEST_F(ReceivedPanelTest, PhoneIsSeenOnlyWithTheModemOn)
{
    for (const bool on : {true, false}) {
        panel.setModemOn(on);
        EXPECT_EQ(!find<QWidget>(u"PhoneDisplay"_qs)->isHidden(), on);
        EXPECT_EQ(!find<QWidget>(u"PhoneOn"_qs)->isHidden(), on);
        EXPECT_EQ(find<QWidget>(u"PhoneOff"_qs)->isHidden(), on);
    }
}

TEST_F(ReceivedPanelTest, MessagesCannotBeTypedOver)
{
    for (const char *const index : {"0", "1", "2", "4"}) {
        const auto *const field = find<QLineEdit>(u"SMSRectxt_"_qs + QLatin1String(index));
        EXPECT_TRUE(field->isReadOnly()) << index;
    }
    EXPECT_TRUE(find<QPlainTextEdit>(u"SMSRectxt_3"_qs)->isReadOnly());
    EXPECT_TRUE(find<QPlainTextEdit>(u"PhoneDisplay"_qs)->isReadOnly());
}

TEST_F(ReceivedPanelTest, WithoutADatabaseAStepTellsTheFailure)
{
    person.answers(u"Tabellen er ikke åpnet"_qs);
    click(u"ArrowLeft"_qs);
    EXPECT_EQ(person.texts.size(), 1);
}

} // namespace
