#include "ModemWorld.h"

#include <gtest/gtest.h>

namespace {

const QByteArray kOk = "\r\nOK\r\n";
const QByteArray kPrompt = "\r\n> ";
const QString kStranger = QStringLiteral("+4791111111");

struct FaultyWorld : ModemWorld {
    FaultyWorld()
    {
        addPhone(kStranger);
        say("ATE0;+CNMI=1,1\r");
    }
    /// Prompt and all that follows on a text.
    QByteArray submit()
    {
        QByteArray heard = say("AT+CMGS=+4791111111\r");
        heard += say("Hei\x1a");
        heard += listen(10s);
        return heard;
    }
    ModemFaults &faults() { return modem.faults(); }
};

const QByteArray kSent = kPrompt + "\r\n+CMGS: 0\r\n\r\nOK\r\n";

TEST(Fault, MuteModemHearsNothingButStoresOn)
{
    FaultyWorld world;
    world.faults().mute = true;
    EXPECT_EQ(world.say("AT\rATE1\r"), QByteArray());
    world.arrive(kStranger, "Hei");
    world.faults().mute = false;
    EXPECT_EQ(world.say("AT\r"), kOk);
    EXPECT_EQ(world.modem.store().used(), 1);
}

TEST(Fault, RefusalsAreCountedAndSendNothing)
{
    FaultyWorld world;
    world.faults().refuseSubmission = FaultCount::times(2);
    world.faults().refusalNumber = 38;
    EXPECT_EQ(world.submit(), kPrompt + "\r\n+CMS ERROR: 38\r\n");
    world.faults().refusalNumber = 0;
    EXPECT_EQ(world.submit(), kPrompt + "\r\nERROR\r\n");
    EXPECT_TRUE(world.received.empty());
    EXPECT_EQ(world.submit(), kSent);
    EXPECT_EQ(world.received.size(), 1u);
}

TEST(Fault, WithoutAPromptTheTextIsACommandLine)
{
    FaultyWorld world;
    world.faults().noPrompt = FaultCount::times(1);
    EXPECT_EQ(world.submit(), QByteArray());
    EXPECT_TRUE(world.received.empty());
    EXPECT_EQ(world.submit(), kSent);
}

TEST(Fault, LostAnswerIsNoLostMessage)
{
    FaultyWorld world;
    world.faults().loseAnswer = FaultCount::times(1);
    EXPECT_EQ(world.submit(), kPrompt);
    EXPECT_EQ(world.received.size(), 1u);
    EXPECT_EQ(world.submit(), kPrompt + "\r\n+CMGS: 1\r\n\r\nOK\r\n");
}

TEST(Fault, LineDropsBetweenPromptAndText)
{
    FaultyWorld world;
    int drops = 0;
    world.modem.setLineDrop([&] {
        ++drops;
        world.modem.lineClosed();
    });
    world.faults().dropAtPrompt = FaultCount::times(1);
    EXPECT_EQ(world.say("AT+CMGS=+4791111111\rlost with the line"), kPrompt);
    EXPECT_EQ(drops, 1);
    EXPECT_EQ(world.say("AT\r"), kOk);
    EXPECT_EQ(world.submit(), kSent);
}

TEST(Fault, EchoStays)
{
    FaultyWorld world;
    world.say("ATE1\r");
    world.faults().echoStuck = true;
    EXPECT_EQ(world.say("ATE0\r"), "ATE0\r\r\nOK\r\n");
    EXPECT_EQ(world.say("AT\r"), "AT\r\r\nOK\r\n");
}

TEST(Fault, SlowModemSaysTheSameInItsTime)
{
    FaultyWorld world;
    world.faults().perCharacter = 10ms;
    EXPECT_EQ(world.say("AT\r"), QByteArray());
    EXPECT_EQ(world.listen(39ms), "\r\nO");
    world.faults().perCharacter = 0ms;
    EXPECT_EQ(world.listen(10ms), "K\r\n");
    EXPECT_EQ(world.say("AT\r"), kOk);
}

TEST(Fault, GarbageHoldsNoAnswer)
{
    FaultyWorld world;
    world.faults().garbage = true;
    const QByteArray said = world.say("AT\rAT+CGMI\rAT+CPMS?\r");
    EXPECT_FALSE(said.isEmpty());
    EXPECT_FALSE(said.contains("OK"));
    EXPECT_TRUE(said.contains('\0'));
    world.faults() = ModemFaults();
    EXPECT_EQ(world.say("AT\r"), kOk);
}

TEST(Fault, StorageMtIsRefusedAndNotOffered)
{
    FaultyWorld world;
    world.faults().refuseMt = true;
    EXPECT_EQ(world.say("AT+CPMS=\"MT\",\"MT\",\"MT\"\r"), "\r\n+CMS ERROR: 303\r\n");
    EXPECT_FALSE(world.say("AT+CPMS=?\r").contains("MT"));
    EXPECT_TRUE(world.say("AT+CPMS=\"SM\",\"SM\",\"SM\"\r").endsWith(kOk));
}

TEST(Fault, ReportsAreRefusedButNoticesAreNot)
{
    FaultyWorld world;
    world.faults().refuseReports = true;
    EXPECT_EQ(world.say("AT+CNMI=1,1,0,2,1\r"), "\r\nERROR\r\n");
    EXPECT_EQ(world.say("AT+CNMI=1,1\r"), kOk);
}

TEST(Fault, FullStorageLeavesMessagesWithTheNetworkUntilItIsOver)
{
    FaultyWorld world;
    world.faults().storeFull = true;
    world.arrive(kStranger, "Hei");
    EXPECT_EQ(world.modem.store().used(), 0);
    EXPECT_TRUE(world.say("AT+CPMS?\r").contains("\"SM\",20,20"));
    world.faults().storeFull = false;
    EXPECT_EQ(world.say("AT\r"), kOk + "\r\n+CMTI: \"SM\",1\r\n");
}

} // namespace
