#include "ModemWorld.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

namespace {

struct Submission : testing::Test, ModemBench {
    Submission()
    {
        openCom();
        module.ModemReady = true;
        module.LastCmgsResult = u"of the one before"_qs;
    }
};

struct Case {
    const char *name;
    QByteArray result;
    QString outcome;
    QString panel;
    int attempts;
};

class Result : public testing::TestWithParam<std::tuple<Case, bool>>, public ModemBench {};

TEST_P(Result, EndsInOneOfFourWords)
{
    const auto &[expected, network] = GetParam();
    open(network);
    module.ModemReady = true;
    modem(network).result = expected.result;
    link.submitter.SendSms(u"I 91234567*25"_qs, u"+4790000001"_qs);
    EXPECT_EQ(module.LastCmgsResult, expected.outcome);
    EXPECT_EQ(view.panels[3], expected.panel);
    EXPECT_EQ(modem(network).commands.count("AT+CMGS=+4790000001"), expected.attempts);
    EXPECT_EQ(modem(network).texts.count("I 91234567*25"), expected.attempts);
    EXPECT_TRUE(link.TimerCom->isEnabled());
    EXPECT_FALSE(link.flags.WaitingForCmgs);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, Result,
    testing::Combine(
        testing::Values(Case{"reference", "\r\n+CMGS: 17\r\n\r\nOK\r\n", u"17"_qs,
                             u"SMS 17 SENDT"_qs, 1},
                        Case{"referenceInOtherCase", "\r\n+cmgs: 255\r\n\r\nOK\r\n", u"255"_qs,
                             u"SMS 255 SENDT"_qs, 1},
                        Case{"stampBehindTheReference", "\r\n+CMGS: 4,\"26/12/01\"\r\n\r\nOK\r\n",
                             u"4,\"26/12/01\""_qs, u"SMS 4,\"26/12/01\" SENDT"_qs, 1},
                        Case{"notificationBeforeTheReference",
                             "\r\n+CMTI: \"SM\",3\r\n\r\n+CMGS: 9\r\n\r\nOK\r\n", u"9"_qs,
                             u"SMS 9 SENDT"_qs, 1},
                        Case{"refused", "\r\nERROR\r\n", u"ERROR"_qs, u"SMS SENDEFEIL"_qs, 5},
                        Case{"refusedWithNumber", "\r\n+CMS ERROR: 500\r\n", u"ERROR"_qs,
                             u"SMS SENDEFEIL"_qs, 5},
                        Case{"noAnswer", "", u"Error"_qs, u"SMS Sending TIMEOUT"_qs, 5},
                        Case{"referenceWithoutNumber", "\r\n+CMGS: \r\n\r\nOK\r\n", u"Error"_qs,
                             u"SMS Sending TIMEOUT"_qs, 5}),
        testing::Bool()),
    [](const auto &each) {
        return std::string(std::get<0>(each.param).name) +
               (std::get<1>(each.param) ? "OnNetwork" : "OnCom");
    });

TEST_F(Submission, TakesALateReferenceOfTheFirstAttemptForGood)
{
    comModem.result = "";
    clock.after(19s, [&] { port.feed("\r\n+CMGS: 3\r\n\r\nOK\r\n"); });
    link.submitter.SendSms(u"hei"_qs, u"4790000001"_qs);
    EXPECT_EQ(module.LastCmgsResult, u"3"_qs);
    EXPECT_EQ(comModem.texts.size(), 1);
}

TEST_F(Submission, GivesEachAttemptTwentySecondsAndTwoBehindIt)
{
    comModem.result = "";
    const milliseconds taken = timed([&] { link.submitter.SendSms(u"hei"_qs, u"4790000001"_qs); });
    // Ten reads of 2050 ms reach 20 seconds; the OK costs four; the prompt comes in 20 ms.
    EXPECT_EQ(taken, 5 * (20ms + 10 * 2050ms + 4 * 2050ms + 2000ms));
}

TEST_F(Submission, SendsTheTextWithoutAPromptToo)
{
    comModem.prompt = "";
    comModem.answers["hei\x1A"] = "";
    clock.after(2500ms, [&] { port.feed("\r\n+CMGS: 5\r\n\r\nOK\r\n"); });
    link.submitter.SendSms(u"hei"_qs, u"4790000001"_qs);
    EXPECT_EQ(port.written, "AT+CMGS=4790000001\rhei\x1A");
    EXPECT_EQ(module.LastCmgsResult, u"5"_qs);
}

TEST_F(Submission, SendsTheModemsAlphabet)
{
    link.submitter.SendSms(u"Æøå Ö@$\r\n_"_qs, u"4790000001"_qs);
    EXPECT_EQ(comModem.texts.value(0), QByteArray("\x1C\x0C\x0F \x5C\0\x02\x0A\x0A\x11", 10));
}

struct Refusal {
    const char *name;
    QString text;
    QString number;
    bool isReady;
    QString panel;
};

class NotTried : public testing::TestWithParam<Refusal>, public ModemBench {};

TEST_P(NotTried, LeavesAnEmptyResultAndTheTimerOn)
{
    openCom();
    module.ModemReady = GetParam().isReady;
    module.LastCmgsResult = u"of the one before"_qs;
    link.submitter.SendSms(GetParam().text, GetParam().number);
    EXPECT_EQ(module.LastCmgsResult, QString());
    EXPECT_EQ(port.written, QByteArray());
    EXPECT_EQ(view.panels.value(3), GetParam().panel);
    EXPECT_TRUE(link.TimerCom->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(
    Messages, NotTried,
    testing::Values(Refusal{"modemNotReady", u"hei"_qs, u"4790000001"_qs, false, {}},
                    Refusal{"numberZero", u"hei"_qs, u"0"_qs, true, {}},
                    Refusal{"numberEmpty", u"hei"_qs, {}, true, {}},
                    Refusal{"numberWithLetters", u"hei"_qs, u"+47900x"_qs, true, {}},
                    Refusal{"numberWithExponent", u"hei"_qs, u"1e5"_qs, true, {}},
                    Refusal{"numberThatIsACommand", u"hei"_qs, u"1\rAT+CMGD=1"_qs, true, {}},
                    Refusal{"textEmpty", {}, u"4790000001"_qs, true, u"Sender SMS"_qs},
                    Refusal{"textOver255", QString(256, u'x'), u"4790000001"_qs, true,
                            u"Sender SMS"_qs},
                    Refusal{"textOutsideTheCharacterSet", u"Привет"_qs, u"4790000001"_qs, true,
                            u"Sender SMS"_qs}),
    [](const auto &each) { return each.param.name; });

TEST_F(Submission, SendsATextOf255Characters)
{
    link.submitter.SendSms(QString(255, u'x'), u"4790000001"_qs);
    EXPECT_EQ(comModem.texts.value(0), QByteArray(255, 'x'));
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
        link.submitter.SendSms(u"hei"_qs, u"4790000001"_qs);
        EXPECT_EQ(module.LastCmgsResult, QString());
        EXPECT_TRUE(link.TimerCom->isEnabled());
        EXPECT_FALSE(link.flags.WaitingForCmgs) << "the send timer would stand still for good";
    }
}

TEST_F(Submission, KeepsEveryOtherReaderOffTheLine)
{
    link.TimerCom->setEnabled(true);
    comModem.result = "";
    clock.after(5s, [&] {
        EXPECT_FALSE(link.TimerCom->isEnabled());
        port.feed("\r\n+CMGS: 8\r\n\r\nOK\r\n");
    });
    link.submitter.SendSms(u"hei"_qs, u"4790000001"_qs);
    EXPECT_EQ(module.LastCmgsResult, u"8"_qs);
    EXPECT_EQ(link.response.text(), QString());
}

TEST_F(Submission, PassesTheEndOfTheProgramOn)
{
    comModem.result = "";
    clock.after(5s, [&] { clock.end(); });
    EXPECT_THROW(link.submitter.SendSms(u"hei"_qs, u"4790000001"_qs), ProgramEnds);
}

} // namespace
