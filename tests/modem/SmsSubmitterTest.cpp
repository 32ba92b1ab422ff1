#include "ModemWorld.h"

#include <gtest/gtest.h>

namespace {

const QString kDoor = u"4790000001"_qs;

struct Submission : testing::Test, ModemBench {
    Submission() { ready(false); }
};

TEST_F(Submission, GivesEachAttemptTwentySecondsAndTwoBehindItAndLetsNobodyElseRead)
{
    becomes(u"lost"_qs);
    link.TimerCom->setEnabled(true);
    clock.after(19s, [&] { EXPECT_FALSE(link.TimerCom->isEnabled()); });
    // Ten reads of 2050 ms reach 20 seconds; the OK costs four.
    EXPECT_EQ(timed([&] { link.submitter.SendSms(u"hei"_qs, kDoor); }),
              5 * (10 * 2050ms + 4 * 2050ms + 2000ms));
}

TEST_F(Submission, CutsTheBlanksOfAPaddedNumber)
{
    link.submitter.SendSms(u"hei"_qs, u" +4790000001  "_qs);
    EXPECT_EQ(port.written, "AT+CMGS=+4790000001\rhei\x1a");
    EXPECT_EQ(module.LastCmgsResult, u"0"_qs);
}

TEST_F(Submission, LeavesAnEmptyResultAndTheTimerOnWhenItIsNotTried)
{
    const struct {
        bool ready;
        QString text;
        QString number;
        QString panel;
    } kRefusals[] = {{false, u"hei"_qs, kDoor, {}},
                     {true, u"hei"_qs, u"0"_qs, {}},
                     {true, u"hei"_qs, {}, {}},
                     {true, u"hei"_qs, u"+47900x"_qs, {}},
                     {true, u"hei"_qs, u"1e5"_qs, {}},
                     {true, u"hei"_qs, u"+47 90000001"_qs, {}},
                     {true, u"hei"_qs, u"1\rAT+CMGD=1"_qs, {}},
                     {true, {}, kDoor, u"Sender SMS"_qs},
                     {true, QString(256, u'x'), kDoor, u"Sender SMS"_qs},
                     {true, u"Привет"_qs, kDoor, u"Sender SMS"_qs}};
    for (const auto &refusal : kRefusals) {
        SCOPED_TRACE(QStringList({refusal.number, refusal.text}).join(u'|').toStdString());
        module.ModemReady = refusal.ready;
        module.LastCmgsResult = u"of the one before"_qs;
        link.TimerCom->setEnabled(false);
        view.panels.clear();
        link.submitter.SendSms(refusal.text, refusal.number);
        EXPECT_EQ(module.LastCmgsResult, QString());
        EXPECT_EQ(port.written, QByteArray());
        EXPECT_EQ(view.panels.value(3), refusal.panel);
        EXPECT_TRUE(link.TimerCom->isEnabled());
    }
}

} // namespace
