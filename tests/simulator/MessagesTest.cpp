#include "ModemWorld.h"

namespace {

const QByteArray kRefused = "\r\n+CMS ERROR: 305\r\n";
const QByteArray kNoSuchPlace = "\r\n+CMS ERROR: 321\r\n";

using Submission = ModemTest;
using StatusReport = ModemTest;
using Storage = ModemTest;
using Notice = ModemTest;

TEST_F(Submission, DeliversWhatAPersonCouldHaveTypedAndRefusesTheRest)
{
    const QByteArray codes("\x00\x08\x0a{~", 5);
    const QByteArray longest(160, 'x');
    const struct {
        const char *name;
        QByteArray to, text, answer, delivered;
    } submissions[] = {
        {"quoted number", "\"+4791111111\",145", "Hei\x1a", kSent, "Hei|"},
        {"nobody there", "+4799999999", "Hei\x1a", kSent, ""},
        {"raw codes", "+4791111111", codes + '\x1a', kSent, codes + '|'},
        {"longest", "+4791111111", longest + '\x1a', kSent, longest + '|'},
        {"too long", "+4791111111", longest + "x\x1a", kRefused, ""},
        {"aborted", "+4791111111", "Hei\x1b", kOk, ""},
    };
    for (const auto &submission : submissions) {
        SCOPED_TRACE(submission.name);
        ModemWorld world;
        EXPECT_EQ(world.say("AT+CMGS=" + submission.to + '\r' + submission.text, 2s),
                  kPrompt + submission.answer);
        EXPECT_EQ(world.delivered(), submission.delivered);
    }
    EXPECT_EQ(ModemWorld().say("AT+CMGS=Ola\rAT+CMGS=\rAT+CMGL=4\r"),
              kRefused + kRefused + kRefused);
    EXPECT_EQ(ModemWorld().say("AT+CMGR=1\rAT+CMGR=999999999999\r"), kNoSuchPlace + kNoSuchPlace);
}

// Nobody is there: the status is 67 instead of 0.
TEST_F(StatusReport, NamesItsRecipientOnlyWithDetails)
{
    ModemWorld world(kWithReports);
    world.modem.setNextReference(255);
    EXPECT_EQ(world.submit("Hei", "+4799999999"), kPrompt + "\r\n+CMGS: 255\r\n" + kOk);
    EXPECT_EQ(world.listen(4s), "\r\n+CDSI: \"SM\",1\r\n");
    const QByteArray rest = ",\"26/12/01,09:00:02+00\",\"26/12/01,09:00:04+00\",67\r\n" + kOk;
    EXPECT_EQ(world.list(), "\r\n+CMGL: 1,\"REC UNREAD\",6,255,," + rest);
    world.modem.faults().recipientInReports = true;
    EXPECT_EQ(world.list(), "\r\n+CMGL: 1,\"REC READ\",6,255,\"+4799999999\",145" + rest);
    world.modem.faults().recipientInReports = false;
    world.say("AT+CSDH=1\r");
    EXPECT_EQ(world.say("AT+CMGR=1\r"), "\r\n+CMGR: \"REC READ\",6,255,\"+4799999999\",145" + rest);
    EXPECT_EQ(world.submit(), kPrompt + kSent) << "the reference has come round";
}

TEST_F(Storage, ListsWhatCameAndMarksItRead)
{
    arrive("Hei\nto");
    arrive("", u"Avis"_qs);
    const QByteArray unread =
        "\r\n+CMGL: 1,\"REC UNREAD\",\"+4791111111\",,\"26/12/01,09:00:00+00\"\r\nHei\nto"
        "\r\n+CMGL: 2,\"REC UNREAD\",\"Avis\",,\"26/12/01,09:00:02+00\"\r\n\r\n" +
        kOk;
    EXPECT_EQ(list("\"REC READ\""), kOk);
    EXPECT_EQ(list(), unread);
    EXPECT_EQ(list("\"REC UNREAD\""), kOk);
    QByteArray read = QByteArray(unread).replace("UNREAD", "READ");
    EXPECT_EQ(list("\"ALL\""), read);
    say("AT+CSDH=1\r");
    read.replace("+00\"\r\nHei", "+00\",145,6\r\nHei").replace("+00\"\r\n\r", "+00\",208,0\r\n\r");
    EXPECT_EQ(list(), read);
    EXPECT_EQ(say("AT+CMGR=1\r"),
              "\r\n+CMGR: \"REC READ\",\"+4791111111\",,\"26/12/01,09:00:00+00\",145,4,0,0,"
              "\"+4790000000\",145,6\r\nHei\nto\r\n" +
                  kOk);
}

TEST_F(Notice, DoesNotComeIntoACommandOrAText)
{
    say("AT+CM");
    EXPECT_EQ(arrive(), QByteArray());
    EXPECT_EQ(say("GF=1\r"), kOk + "\r\n+CMTI: \"SM\",1\r\n");
    say("AT+CMGS=+4799999999\r");
    EXPECT_EQ(arrive(), QByteArray());
    EXPECT_EQ(say("Hei\x1a", 2s), kSent + "\r\n+CMTI: \"SM\",2\r\n");
}

} // namespace
