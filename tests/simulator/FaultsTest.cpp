#include "ModemWorld.h"

namespace {

struct Fault : testing::Test, ModemWorld {
    ModemFaults &faults = modem.faults();
};

TEST_F(Fault, StrikesWhereItShouldAndNowhereElse)
{
    const QByteArray submission = "AT+CMGS=+4791111111\rHei\x1a";
    const struct {
        const char *name;
        void (*set)(ModemFaults &);
        QByteArray said, answer, delivered;
    } strikes[] = {
        {"mute", [](ModemFaults &f) { f.mute = true; }, "ATE1\rAT\r", "", ""},
        {"refused", [](ModemFaults &f) { f.refuseSubmission = FaultCount::always(); }, submission,
         kPrompt + "\r\n+CMS ERROR: 500\r\n", ""},
        {"no prompt", [](ModemFaults &f) { f.noPrompt = FaultCount::always(); }, submission, "",
         ""},
        {"answer lost", [](ModemFaults &f) { f.loseAnswer = FaultCount::always(); }, submission,
         kPrompt, "Hei|"},
        {"echo", [](ModemFaults &f) { f.echoStuck = true; }, "AT&F\rATE0\rAT\r",
         kOk + "ATE0\r" + kOk + "AT\r" + kOk, ""},
        {"no MT", [](ModemFaults &f) { f.refuseMt = true; },
         "AT+CPMS=\"MT\"\rAT+CPMS=?\rAT+CPMS=\"SM\"\r",
         "\r\n+CMS ERROR: 303\r\n\r\n+CPMS: (\"SM\",\"ME\"),(\"SM\",\"ME\"),(\"SM\",\"ME\")\r\n" +
             kOk + "\r\n+CPMS: 0,20,0,20,0,20\r\n" + kOk,
         ""},
        {"no reports", [](ModemFaults &f) { f.refuseReports = true; },
         "AT+CNMI=1,1,0,2,1\rAT+CNMI=1,1\r", kError + kOk, ""},
    };
    for (const auto &[name, set, input, answer, texts] : strikes) {
        ModemWorld world;
        set(world.modem.faults());
        EXPECT_EQ(world.say(input, 2s), answer) << name;
        EXPECT_EQ(world.delivered(), texts) << name;
    }
}

TEST_F(Fault, MuteModemStoresOn)
{
    faults.mute = true;
    EXPECT_EQ(arrive(), QByteArray());
    EXPECT_EQ(modem.store().used(), 1);
}

TEST_F(Fault, RefusalsAreCounted)
{
    faults.refuseSubmission = FaultCount::times(1);
    faults.refusalNumber = 0;
    EXPECT_EQ(submit("en"), kPrompt + kError);
    EXPECT_EQ(submit("to"), kPrompt + kSent);
    EXPECT_EQ(delivered(), "to|");
}

TEST_F(Fault, LineDropsBetweenPromptAndText)
{
    int drops = 0;
    modem.setLineDrop([&] {
        ++drops;
        modem.lineClosed();
    });
    faults.dropAtPrompt = FaultCount::times(1);
    EXPECT_EQ(say("AT+CMGS=+4791111111\rlost with the line"), kPrompt);
    EXPECT_EQ(drops, 1);
    EXPECT_EQ(submit(), kPrompt + kSent);
}

TEST_F(Fault, SlowModemSaysTheSameInItsTimeUntilItIsMended)
{
    faults.perCharacter = 10ms;
    EXPECT_EQ(say("AT\r"), QByteArray());
    EXPECT_EQ(listen(39ms), "\r\nO");
    faults.perCharacter = 0ms;
    EXPECT_EQ(listen(10ms), "K\r\n");
    faults.perCharacter = 24h;
    EXPECT_EQ(say("AT\r"), QByteArray());
    faults.perCharacter = 0ms;
    EXPECT_EQ(say("AT\r"), kOk + kOk) << "the next character is not waited for";
}

TEST_F(Fault, GarbageHoldsNoAnswer)
{
    faults.garbage = true;
    const QByteArray noise = say("AT\rAT+CGMI\rAT+CPMS?\rATV0\rAT\r");
    EXPECT_TRUE(noise.contains('\0'));
    EXPECT_FALSE(noise.contains("OK") || noise.contains('0'));
    faults = ModemFaults();
    EXPECT_EQ(say("ATV1\r"), kOk);
}

TEST_F(Fault, FullStorageLeavesMessagesWithTheNetworkUntilItIsOver)
{
    faults.storeFull = true;
    EXPECT_EQ(arrive(), QByteArray());
    EXPECT_EQ(modem.store().used(), 0);
    EXPECT_TRUE(say("AT+CPMS?\r").contains("\"SM\",20,20"));
    faults.storeFull = false;
    EXPECT_EQ(say("AT\r"), kOk + "\r\n+CMTI: \"SM\",1\r\n");
}

} // namespace
