#include "inbound/ReceivedPanel.h"

#include "platform/qt/UpDown.h"
#include "support/Bench.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

struct ReceivedPanelTest : testing::Test, Bench {
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

    TestDatabase database;
    ReceivedPanel panel{recordsets, person};
};

TEST_F(ReceivedPanelTest, ArrowsGoRoundAndTheStepperStopsAtEitherEndWithABeep)
{
    fill(3);
    auto *const stepper = find<UpDown>(u"UpDown2"_qs);
    const auto left = [&] { click(u"ArrowLeft"_qs); };
    const auto right = [&] { click(u"ArrowRight"_qs); };
    const auto up = [&] { emit stepper->up(); };
    const auto down = [&] { emit stepper->down(); };
    const struct {
        std::function<void()> step;
        int shown;
        int beeps;
    } kSteps[] = {{right, 1, 1}, {left, 3, 2}, {left, 2, 2}, {up, 3, 2},
                  {up, 3, 3},    {down, 2, 3}, {down, 1, 3}, {down, 1, 4}};
    for (const auto &[step, shown, beeps] : kSteps) {
        step();
        EXPECT_EQ(shownId(), QString::number(shown));
        EXPECT_EQ(panel.messageOnScreen(), shown);
        EXPECT_EQ(person.beeps, beeps);
    }
}

TEST_F(ReceivedPanelTest, StepsNowhereWithoutMessagesOrADatabase)
{
    person.answers(u"Tabellen er ikke åpnet"_qs);
    click(u"ArrowLeft"_qs);
    fill(0);
    click(u"ArrowLeft"_qs);
    emit find<UpDown>(u"UpDown2"_qs)->down();
    EXPECT_EQ(person.beeps, 0);
    EXPECT_EQ(shownId(), QString());
    EXPECT_EQ(person.texts.size(), 1);
}

TEST_F(ReceivedPanelTest, PhoneShowsTheFieldsInItsOwnOrder)
{
    fill(1);
    EXPECT_EQ(find<QPlainTextEdit>(u"PhoneDisplay"_qs)->toPlainText(),
              u"Nummer: 1\nFra  : +4790000001\nNavn: Port 1\n26/12/01,12:34:56\n\nMelding 1"_qs);
}

} // namespace
