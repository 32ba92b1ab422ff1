#include "ModemWorld.h"

#include <gtest/gtest.h>

namespace {

const QByteArray kOk = "\r\nOK\r\n";
const QString kStranger = QStringLiteral("+4791111111");

/// A modem that has been told what the program tells it, at 9:00:00 on 1 December 2026.
struct ReadyWorld : ModemWorld {
    explicit ReadyWorld(const QByteArray &reports = "AT+CSMP=49,167,0,0;+CNMI=1,1,0,2,1\r")
    {
        addPhone(kStranger);
        say("ATE0;+CMGF=1\r");
        say(reports);
    }
    QByteArray submit(const QByteArray &text, const QByteArray &number = "+4791111111")
    {
        say("AT+CMGS=" + number + "\r");
        modem.receive(text + '\x1a');
        return listen(2s);
    }
    QByteArray list(const QByteArray &which = "ALL") { return say("AT+CMGL=" + which + "\r"); }
    /// The numbers of the places in use.
    std::vector<int> places()
    {
        std::vector<int> indexes;
        for (const auto &entry : modem.store().records()) {
            indexes.push_back(entry.first);
        }
        return indexes;
    }
};

// --- Submission

struct Submission {
    const char *name;
    QByteArray command;
    QByteArray text;
    QByteArray prompt;
    QByteArray answer;
    std::vector<QByteArray> received;
};

void PrintTo(const Submission &submission, std::ostream *out)
{
    *out << submission.name;
}

class Submits : public testing::TestWithParam<Submission> {};

TEST_P(Submits, WhatAPersonCouldHaveTyped)
{
    ReadyWorld world("AT+CSMP=17,167,0,0\r");
    const Submission &test = GetParam();
    EXPECT_EQ(world.say(test.command + '\r'), test.prompt);
    QByteArray heard = world.say(test.text);
    heard += world.listen(10s);
    EXPECT_EQ(heard, test.answer);
    std::vector<QByteArray> texts;
    for (const SmsMessage &message : world.received) {
        texts.push_back(message.text);
    }
    EXPECT_EQ(texts, test.received);
}

const QByteArray kPrompt = "\r\n> ";
const QByteArray kSent = "\r\n+CMGS: 0\r\n\r\nOK\r\n";
const QByteArray kRefused = "\r\n+CMS ERROR: 305\r\n";
const QByteArray kEnd = "\x1a";

INSTANTIATE_TEST_SUITE_P(
    Texts, Submits,
    testing::Values(
        Submission{"bareNumber", "AT+CMGS=+4791111111", "Hei" + kEnd, kPrompt, kSent, {"Hei"}},
        Submission{
            "quotedNumber", "AT+CMGS=\"+4791111111\",145", "Hei" + kEnd, kPrompt, kSent, {"Hei"}},
        Submission{"prefixOfDigits", "AT+CMGS=004791111111", "Hei" + kEnd, kPrompt, kSent, {"Hei"}},
        Submission{"nobodyThere", "AT+CMGS=+4799999999", "Hei" + kEnd, kPrompt, kSent, {}},
        Submission{"rawCodes",
                   "AT+CMGS=+4791111111",
                   QByteArray("\x00\x08\x0a{~", 5) + kEnd,
                   kPrompt,
                   kSent,
                   {QByteArray("\x00\x08\x0a{~", 5)}},
        Submission{"looksLikeACommand",
                   "AT+CMGS=+4791111111",
                   "AT+CMGF=0" + kEnd,
                   kPrompt,
                   kSent,
                   {"AT+CMGF=0"}},
        Submission{"empty", "AT+CMGS=+4791111111", kEnd, kPrompt, kSent, {""}},
        Submission{"longest",
                   "AT+CMGS=+4791111111",
                   QByteArray(160, 'x') + kEnd,
                   kPrompt,
                   kSent,
                   {QByteArray(160, 'x')}},
        Submission{
            "tooLong", "AT+CMGS=+4791111111", QByteArray(161, 'x') + kEnd, kPrompt, kRefused, {}},
        Submission{
            "endless", "AT+CMGS=+4791111111", QByteArray(50000, 'x') + kEnd, kPrompt, kRefused, {}},
        Submission{"aborted", "AT+CMGS=+4791111111", "Hei\x1b", kPrompt, kOk, {}},
        Submission{"lettersForANumber", "AT+CMGS=Ola", "", kRefused, "", {}},
        Submission{"noNumber", "AT+CMGS=", "", kRefused, "", {}}),
    [](const auto &param) { return param.param.name; });

TEST(Submission, TakesItsTimeAndHoldsWhatThePcWritesMeanwhile)
{
    ReadyWorld world;
    world.say("AT+CMGS=+4791111111\r");
    EXPECT_EQ(world.say("Hei\x1a"
                        "AT+CMGF?\r"),
              QByteArray());
    EXPECT_EQ(world.listen(1999ms), QByteArray());
    EXPECT_EQ(world.listen(1ms), kSent + "\r\n+CMGF: 1\r\n" + kOk);
}

TEST(Submission, CountsItsReferencesRound)
{
    ReadyWorld world;
    world.modem.setNextReference(255);
    EXPECT_EQ(world.submit("en"), "\r\n+CMGS: 255\r\n" + kOk);
    EXPECT_EQ(world.submit("to"), kSent);
}

TEST(Submission, GoesOnWhenThePcLeavesBehindTheText)
{
    ReadyWorld world;
    world.say("AT+CMGS=+4791111111\r");
    world.say("Hei\x1a");
    world.modem.lineClosed();
    world.clock.run(5s);
    ASSERT_EQ(world.received.size(), 1u);
    EXPECT_EQ(world.received[0].text, "Hei");
}

TEST(Submission, IsForgottenWhenThePcLeavesInTheText)
{
    ReadyWorld world;
    world.say("AT+CMGS=+4791111111\r");
    world.say("Hei");
    world.modem.lineClosed();
    EXPECT_EQ(world.say("AT\r"), kOk);
    EXPECT_TRUE(world.received.empty());
}

TEST(Submission, PromptsAgainForEachLineOfTheText)
{
    ReadyWorld world;
    world.say("AT+CMGS=+4791111111\r");
    EXPECT_EQ(world.say("en\rto"), "\r\n> ");
    world.say("\x1b");
    world.say("ATE1\r");
    world.say("AT+CMGS=+4791111111\r");
    EXPECT_EQ(world.say("en\rto"), "en\r\n> to");
}

// --- Status reports

TEST(StatusReport, IsListedInTheFormWithoutRecipient)
{
    ReadyWorld world;
    world.modem.setNextReference(45);
    world.submit("Hei");
    EXPECT_EQ(world.listen(4s), "\r\n+CDSI: \"SM\",1\r\n");
    EXPECT_EQ(world.list(), "\r\n+CMGL: 1,\"REC UNREAD\",6,45,,,\"26/12/01,09:00:02+00\","
                            "\"26/12/01,09:00:04+00\",0\r\n" +
                                kOk);
}

TEST(StatusReport, NamesItsRecipientWithDetails)
{
    ReadyWorld world;
    world.submit("Hei");
    world.listen(4s);
    world.say("AT+CSDH=1\r");
    EXPECT_EQ(world.say("AT+CMGR=1\r"),
              "\r\n+CMGR: \"REC UNREAD\",6,0,\"+4791111111\",145,\"26/12/01,09:00:02+00\","
              "\"26/12/01,09:00:04+00\",0\r\n" +
                  kOk);
    world.say("AT+CSDH=0\r");
    world.modem.faults().recipientInReports = true;
    EXPECT_TRUE(world.list().contains("REC READ\",6,0,\"+4791111111\",145,"));
}

TEST(StatusReport, TellsThatNobodyIsThere)
{
    ReadyWorld world;
    world.submit("Hei", "+4799999999");
    world.listen(4s);
    EXPECT_TRUE(world.list().contains(",67\r\n"));
}

TEST(StatusReport, NeedsBothItsRequestAndItsPlace)
{
    for (const char *setting :
         {"AT+CSMP=17,167,0,0;+CNMI=1,1,0,2,1\r", "AT+CSMP=49,167,0,0;+CNMI=1,1\r"}) {
        ReadyWorld world(setting);
        world.submit("Hei");
        EXPECT_EQ(world.listen(10s), QByteArray()) << setting;
        EXPECT_EQ(world.list(), kOk) << setting;
    }
}

// --- The storage

TEST(Storage, ListsWhatCame)
{
    ReadyWorld world;
    world.arrive(kStranger, "Hei\nto");
    world.arrive(QStringLiteral("Avis"), "\x0f");
    const QByteArray unread = "\r\n+CMGL: 1,\"REC UNREAD\",\"+4791111111\",,"
                              "\"26/12/01,09:00:00+00\"\r\nHei\nto\r\n"
                              "+CMGL: 2,\"REC UNREAD\",\"Avis\",,"
                              "\"26/12/01,09:00:02+00\"\r\n\x0f\r\n" +
                              kOk;
    EXPECT_EQ(world.list("\"REC READ\""), kOk);
    EXPECT_EQ(world.list("ALL"), unread);
    EXPECT_EQ(world.list("\"REC UNREAD\""), kOk);
    EXPECT_EQ(world.list("\"ALL\""), QByteArray(unread).replace("UNREAD", "READ"));
}

TEST(Storage, GivesDetailsWhenAsked)
{
    ReadyWorld world;
    world.arrive(kStranger, "Hei");
    world.arrive(QStringLiteral("Avis"), "");
    world.say("AT+CSDH=1\r");
    EXPECT_EQ(world.list(),
              "\r\n+CMGL: 1,\"REC UNREAD\",\"+4791111111\",,\"26/12/01,09:00:00+00\",145,3\r\nHei"
              "\r\n+CMGL: 2,\"REC UNREAD\",\"Avis\",,\"26/12/01,09:00:02+00\",208,0\r\n\r\n" +
                  kOk);
    EXPECT_EQ(world.say("AT+CMGR=1\r"),
              "\r\n+CMGR: \"REC READ\",\"+4791111111\",,\"26/12/01,09:00:00+00\",145,4,0,0,"
              "\"+4790000000\",145,3\r\nHei\r\n" +
                  kOk);
}

TEST(Storage, KeepsAnUnsentMessage)
{
    ReadyWorld world;
    world.say("AT+CMGW=\"91111111\"\r");
    EXPECT_EQ(world.say("Hei\x1a"), "\r\n+CMGW: 1\r\n" + kOk);
    EXPECT_EQ(world.list(), "\r\n+CMGL: 1,\"STO UNSENT\",\"91111111\",,\r\nHei\r\n" + kOk);
    world.say("AT+CSDH=1\r");
    EXPECT_EQ(world.say("AT+CMGR=1\r"),
              "\r\n+CMGR: \"STO UNSENT\",\"91111111\",,129,49,0,0,167,\"+4790000000\",145,3\r\nHei"
              "\r\n" +
                  kOk);
    world.clock.run(10s);
    EXPECT_TRUE(world.received.empty());
}

TEST(Storage, FillsTheLowestFreePlace)
{
    ReadyWorld world;
    for (int i = 0; i < 4; ++i) {
        world.arrive(kStranger, "Hei");
    }
    world.say("AT+CMGD=2\r");
    world.say("AT+CMGD=1\r");
    world.said.clear();
    world.arrive(kStranger, "Hei");
    EXPECT_EQ(world.said, "\r\n+CMTI: \"SM\",1\r\n");
    world.arrive(kStranger, "Hei");
    EXPECT_EQ(world.places(), (std::vector{1, 2, 3, 4}));
}

struct Deletion {
    const char *name;
    QByteArray arguments;
    QByteArray answer;
    std::vector<int> left; ///< of 1 read, 2 unsent, 3 unread
};

void PrintTo(const Deletion &deletion, std::ostream *out)
{
    *out << deletion.name;
}

class Deletes : public testing::TestWithParam<Deletion> {};

TEST_P(Deletes, NothingButWhatWasNamed)
{
    ReadyWorld world;
    world.arrive(kStranger, "en");
    world.list();
    world.say("AT+CMGW=\"1\"\r");
    world.say("to\x1a");
    world.arrive(kStranger, "tre");
    EXPECT_EQ(world.say("AT+CMGD=" + GetParam().arguments + "\r"), GetParam().answer);
    EXPECT_EQ(world.places(), GetParam().left);
}

const QByteArray kNoSuchPlace = "\r\n+CMS ERROR: 321\r\n";

INSTANTIATE_TEST_SUITE_P(
    Flags, Deletes,
    testing::Values(Deletion{"place", "2", kOk, {1, 3}}, Deletion{"flagZero", "2,0", kOk, {1, 3}},
                    Deletion{"emptyPlace", "4", kNoSuchPlace, {1, 2, 3}},
                    Deletion{"placeZero", "0", kNoSuchPlace, {1, 2, 3}},
                    Deletion{"noNumber", "\"2\"", kNoSuchPlace, {1, 2, 3}},
                    Deletion{"theRead", "1,1", kOk, {2, 3}},
                    Deletion{"theReadAndSent", "1,2", kOk, {2, 3}},
                    Deletion{"allButTheUnread", "1,3", kOk, {3}},
                    Deletion{"everything", "1,4", kOk, {}},
                    Deletion{"unknownFlag", "1,5", "\r\n+CMS ERROR: 305\r\n", {1, 2, 3}}),
    [](const auto &param) { return param.param.name; });

TEST(Storage, RefusesPlacesAndWordsThatItHasNot)
{
    ReadyWorld world;
    EXPECT_EQ(world.say("AT+CMGR=1\r"), kNoSuchPlace);
    EXPECT_EQ(world.say("AT+CMGR=999999999999\r"), kNoSuchPlace);
    EXPECT_EQ(world.list("4"), "\r\n+CMS ERROR: 305\r\n");
}

TEST(Storage, LetsTheNetworkKeepWhatHasNoRoom)
{
    ReadyWorld world;
    world.modem.store().setCapacity(2);
    for (const char *text : {"en", "to", "tre", "fire"}) {
        world.arrive(kStranger, text);
    }
    EXPECT_EQ(world.places(), (std::vector{1, 2}));
    EXPECT_TRUE(world.say("AT+CPMS?\r").contains("\"SM\",2,2"));
    EXPECT_EQ(world.say("AT+CMGW=\"1\"\r"), kPrompt);
    EXPECT_EQ(world.say("Hei\x1a"), "\r\n+CMS ERROR: 322\r\n");

    EXPECT_EQ(world.say("AT+CMGD=1\r"), kOk + "\r\n+CMTI: \"SM\",1\r\n");
    EXPECT_TRUE(world.list().contains("\r\ntre\r\n"));
    world.say("AT+CMGD=1\r");
    EXPECT_TRUE(world.list().contains("\r\nfire\r\n"));
}

// --- Notices

TEST(Notice, DoesNotComeIntoACommandOrAText)
{
    ReadyWorld world;
    world.say("AT+CM");
    world.network.send(kStranger, world.modem.ownNumber(), "Hei");
    EXPECT_EQ(world.listen(3s), QByteArray());
    EXPECT_EQ(world.say("GF=1\r"), kOk + "\r\n+CMTI: \"SM\",1\r\n");

    world.say("AT+CMGS=+4799999999\r");
    world.network.send(kStranger, world.modem.ownNumber(), "Hei");
    EXPECT_EQ(world.listen(3s), QByteArray());
    EXPECT_EQ(world.say("Hei\x1a"), QByteArray());
    EXPECT_EQ(world.listen(2s), kSent + "\r\n+CMTI: \"SM\",2\r\n");
}

TEST(Notice, WaitsUntilItIsWanted)
{
    ReadyWorld world("AT+CNMI=0,1\r");
    world.network.send(kStranger, world.modem.ownNumber(), "Hei");
    EXPECT_EQ(world.listen(3s), QByteArray());
    EXPECT_EQ(world.say("AT+CNMI=1,1\r"), kOk + "\r\n+CMTI: \"SM\",1\r\n");
}

TEST(Notice, NamesTheStorageOfArrivals)
{
    ReadyWorld world;
    world.say("AT+CPMS=\"ME\",\"ME\",\"ME\"\r");
    world.network.send(kStranger, world.modem.ownNumber(), "Hei");
    EXPECT_EQ(world.listen(3s), "\r\n+CMTI: \"ME\",1\r\n");
    EXPECT_TRUE(world.list().contains("Hei"));
    world.say("AT+CPMS=\"SM\",\"SM\",\"SM\"\r");
    EXPECT_EQ(world.list(), kOk);
}

} // namespace
