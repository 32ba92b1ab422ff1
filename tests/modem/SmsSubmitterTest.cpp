#include "ModemWorld.h"

#include <gtest/gtest.h>

namespace {

const QString kDoor = u"4790000001"_qs;

struct Submission : testing::Test, ModemBench {
    Submission() { ready(false); }
};

TEST(SubmissionResult, EndsInOneOfFourWords)
{
    const struct {
        QByteArray result;
        QString outcome;
        QString panel;
        int attempts;
    } kCases[] = {
        {"\r\n+CMGS: 17\r\n\r\nOK\r\n", u"17"_qs, u"SMS 17 SENDT"_qs, 1},
        {"\r\n+cmgs: 255\r\n\r\nOK\r\n", u"255"_qs, u"SMS 255 SENDT"_qs, 1},
        {"\r\n+CMGS: 4,\"26/12/01\"\r\n\r\nOK\r\n", u"4,\"26/12/01\""_qs,
         u"SMS 4,\"26/12/01\" SENDT"_qs, 1},
        {"\r\n+CMTI: \"SM\",3\r\n\r\n+CMGS: 9\r\n\r\nOK\r\n", u"9"_qs, u"SMS 9 SENDT"_qs, 1},
        {"\r\nERROR\r\n", u"ERROR"_qs, u"SMS SENDEFEIL"_qs, 5},
        {"\r\n+CMS ERROR: 500\r\n", u"ERROR"_qs, u"SMS SENDEFEIL"_qs, 5},
        {"", u"Error"_qs, u"SMS Sending TIMEOUT"_qs, 5},
        {"\r\n+CMGS: \r\n\r\nOK\r\n", u"Error"_qs, u"SMS Sending TIMEOUT"_qs, 5}};
    for (const bool network : {false, true}) {
        for (const auto &expected : kCases) {
            SCOPED_TRACE(expected.result.constData());
            ModemBench world;
            world.ready(network);
            ListedModem &modem = world.modem(network);
            modem.result = expected.result;
            world.link.submitter.SendSms(u"I 91234567*25"_qs, kDoor);
            EXPECT_EQ(world.module.LastCmgsResult, expected.outcome);
            EXPECT_EQ(world.view.panels[3], expected.panel);
            EXPECT_EQ(modem.commands.count("AT+CMGS=4790000001"), expected.attempts);
            EXPECT_EQ(modem.texts.count("I 91234567*25"), expected.attempts);
            EXPECT_TRUE(world.link.TimerCom->isEnabled());
            EXPECT_FALSE(world.link.flags.WaitingForCmgs);
        }
    }
}

TEST_F(Submission, TakesALateReferenceOfTheFirstAttemptForGoodAndLetsNobodyElseRead)
{
    comModem.result = "";
    link.TimerCom->setEnabled(true);
    clock.after(19s, [&] {
        EXPECT_FALSE(link.TimerCom->isEnabled());
        port.feed("\r\n+CMGS: 3\r\n\r\nOK\r\n");
    });
    link.submitter.SendSms(u"hei"_qs, kDoor);
    EXPECT_EQ(module.LastCmgsResult, u"3"_qs);
    EXPECT_EQ(comModem.texts.size(), 1);
    EXPECT_EQ(link.response.text(), QString());
}

TEST_F(Submission, GivesEachAttemptTwentySecondsAndTwoBehindIt)
{
    comModem.result = "";
    // Ten reads of 2050 ms reach 20 seconds; the OK costs four; the prompt comes in 20 ms.
    EXPECT_EQ(timed([&] { link.submitter.SendSms(u"hei"_qs, kDoor); }),
              5 * (20ms + 10 * 2050ms + 4 * 2050ms + 2000ms));
}

TEST_F(Submission, SendsTheTextWithoutAPromptToo)
{
    comModem.prompt = "";
    comModem.answers["hei\x1A"] = "";
    clock.after(2500ms, [&] { port.feed("\r\n+CMGS: 5\r\n\r\nOK\r\n"); });
    link.submitter.SendSms(u"hei"_qs, kDoor);
    EXPECT_EQ(port.written, "AT+CMGS=4790000001\rhei\x1A");
    EXPECT_EQ(module.LastCmgsResult, u"5"_qs);
}

TEST_F(Submission, SendsTheModemsAlphabetAndUpTo255Characters)
{
    link.submitter.SendSms(u"Æøå Ö@$\r\n_"_qs, kDoor);
    EXPECT_EQ(comModem.texts.value(0), QByteArray("\x1C\x0C\x0F \x5C\0\x02\x0A\x0A\x11", 10));
    link.submitter.SendSms(QString(255, u'x'), kDoor);
    EXPECT_EQ(comModem.texts.value(1), QByteArray(255, 'x'));
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

TEST_F(Submission, EndsInSilenceWhenTheLineDrops)
{
    comModem.result = "";
    // In the wait for the result, and between prompt and text.
    for (const milliseconds drop : {5000ms, 25ms}) {
        port.plugIn();
        openCom();
        comModem.prompt = drop < 1s ? "\r\n" : "\r\n> ";
        clock.after(drop, [&] {
            EXPECT_EQ(link.flags.WaitingForCmgs, drop > 1s);
            port.unplug();
        });
        link.submitter.SendSms(u"hei"_qs, kDoor);
        EXPECT_EQ(module.LastCmgsResult, QString());
        EXPECT_TRUE(link.TimerCom->isEnabled());
        EXPECT_FALSE(link.flags.WaitingForCmgs) << "the send timer would stand still for good";
    }
}

} // namespace
