#include "ModemWorld.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace {

constexpr milliseconds kBefore = 4500ms;

struct Watcher : testing::Test, ModemWorld {
    Watcher()
    {
        openCom();
        comModem.isMute = true;
        module.ModemReady = true;
        link.pace.restart(kBefore);
    }
};

struct Case {
    const char *name;
    QString line;
    bool pending;
    milliseconds interval;
    QString panel;
    bool asksForListing;
    bool stillReading;
};

class WatchedLine : public testing::TestWithParam<Case>, public ModemBench {};

TEST_P(WatchedLine, HasItsEffect)
{
    const Case &expected = GetParam();
    openCom();
    link.flags.QueuePending = expected.pending;
    link.flags.ReadingMessages = true;
    link.pace.restart(kBefore);
    link.response.setText(expected.line);
    EXPECT_EQ(link.pace.interval(), expected.interval);
    EXPECT_EQ(view.panels.value(2), expected.panel);
    EXPECT_EQ(port.written, expected.asksForListing ? QByteArray("AT+CMGL=ALL\r") : QByteArray());
    EXPECT_EQ(link.flags.ReadingMessages, expected.stillReading);
    EXPECT_EQ(steps, QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Lines, WatchedLine,
    testing::Values(
        Case{"newMessage", u"+CMTI: \"SM\",3"_qs, false, 2000ms, u"Mottar SMS"_qs, false, true},
        Case{"newMessageBetweenSends", u"+CMTI: \"SM\",3"_qs, true, kBefore, u"Mottar SMS"_qs, true,
             true},
        Case{"report", u"+CDSI: \"SM\",3"_qs, false, 2000ms, u"Mottar Kvittering"_qs, false, true},
        Case{"reportBetweenSends", u"+CDSI: \"SM\",3"_qs, true, kBefore, u"Mottar Kvittering"_qs,
             true, true},
        Case{"messageGoesBeforeReport", u"+CMTI +CDSI: "_qs, false, 2000ms, u"Mottar SMS"_qs, false,
             true},
        Case{"notificationEndsTheTests", u"+CMTI OK"_qs, false, 2000ms, u"Mottar SMS"_qs, false,
             true},
        Case{"ok", u"OK"_qs, false, 6750ms, {}, false, false},
        Case{"okBetweenSends", u"OK"_qs, true, kBefore, {}, false, false},
        Case{"okInsideOtherWords", u"look"_qs, false, 6750ms, {}, false, false},
        Case{"error", u"+CMS ERROR: 500"_qs, false, 2000ms, {}, false, true},
        Case{"errorBetweenSends", u"ERROR"_qs, true, kBefore, {}, false, true},
        Case{"okAndError", u"OK ERROR"_qs, false, 2000ms, {}, false, false},
        Case{"anythingElse", u"RING"_qs, false, kBefore, {}, false, true}),
    [](const auto &each) { return each.param.name; });

TEST_F(Watcher, HandsAListedMessageOn)
{
    const struct {
        QString line;
        int index;
    } kHeaders[] = {{u"+CMGL: 7,\"REC UNREAD\",\"+4791234567\""_qs, 7},
                    {u"+CMGL: 0,"_qs, 0},
                    {u"+cmgl: 12"_qs, 12},
                    {u"+CMGL: 255,"_qs, 255},
                    {u"+CMGL: 0000009,"_qs, 9},
                    {u"+CMGL: 00000093"_qs, 9},
                    {u"x+CMGL: 3 4"_qs, 3},
                    {u"+CMGL: ,4"_qs, 0}};
    for (const auto &header : kHeaders) {
        steps.clear();
        link.flags.ReadingMessages = false;
        link.TimerCom->setEnabled(true);
        module.MessageIndex = 99;
        link.response.setText(header.line);
        EXPECT_EQ(module.MessageIndex, header.index) << header.line.toStdString();
        EXPECT_EQ(view.panels[2], u"Melding %1 MOTTATT"_qs.arg(header.index));
        EXPECT_EQ(steps, QStringList{u"read"_qs});
        EXPECT_TRUE(link.flags.ReadingMessages);
        EXPECT_FALSE(link.TimerCom->isEnabled());
    }
}

TEST_F(Watcher, ShowsAnIndexThatFitsNoByteOnceAndTicksOn)
{
    link.TimerCom->setEnabled(true);
    person.answers(u"for stort"_qs);
    port.feed("+CMGL: 256,\"REC READ\"\r\n");
    clock.run(1500ms);
    EXPECT_EQ(person.texts.size(), 1);
    EXPECT_EQ(steps, QStringList());
    EXPECT_TRUE(link.TimerCom->isEnabled());
}

TEST_F(Watcher, PassesOverAHeaderInsideAMessage)
{
    link.watcher.Read_SMS_MessageTEXT = [&] {
        steps += u"read"_qs;
        link.response.setText(u"+CMGL: 4,"_qs);
        link.response.setText(u"+CMGL: 300,"_qs);
    };
    link.response.setText(u"+CMGL: 3,"_qs);
    EXPECT_EQ(steps, QStringList{u"read"_qs});
    EXPECT_EQ(module.MessageIndex, 3);
    EXPECT_EQ(person.texts, QStringList());
}

TEST_F(Watcher, MovesOneLineASecond)
{
    link.TimerCom->setEnabled(true);
    port.feed("RING\r\n+CMTI: \"SM\",1\r\n");
    clock.run(999ms);
    EXPECT_EQ(link.response.text(), QString());
    clock.run(1ms);
    EXPECT_EQ(link.response.text(), u"RING"_qs);
    clock.run(1000ms);
    EXPECT_EQ(link.response.text(), u"+CMTI: \"SM\",1"_qs);
}

TEST_F(Watcher, PassesOverTheSameLineTwice)
{
    link.TimerCom->setEnabled(true);
    port.feed("+CMTI: \"SM\",1\r\n+CMTI: \"SM\",1\r\n");
    clock.run(1000ms);
    link.pace.restart(kBefore);
    clock.run(1000ms);
    EXPECT_EQ(link.pace.interval(), kBefore);
}

TEST_F(Watcher, TakesNoLineWhileAnotherOwnsTheModem)
{
    link.TimerCom->setEnabled(true);
    port.feed("RING\r\n");
    const auto untouched = [&](bool &flag, bool value) {
        const bool usual = std::exchange(flag, value);
        clock.run(1000ms);
        flag = usual;
        return link.response.text().isEmpty();
    };
    EXPECT_TRUE(untouched(module.ModemReady, false));
    EXPECT_TRUE(untouched(link.flags.QueueRunning, true));
    EXPECT_TRUE(untouched(link.flags.ModemInitRunning, true));
    EXPECT_FALSE(untouched(link.flags.ComposingSms, true));
}

TEST_F(Watcher, KeepsALineWholeThatComesOverSeveralTicks)
{
    link.TimerCom->setEnabled(true);
    port.feed("+CM");
    clock.after(2500ms, [&] { port.feed("TI: \"SM\",1\r\n"); });
    clock.run(6s);
    EXPECT_EQ(link.response.text(), u"+CMTI: \"SM\",1"_qs);
}

TEST_F(Watcher, ShowsOneBoxForALineThatKeepsFailing)
{
    link.TimerCom->setEnabled(true);
    link.watcher.Read_SMS_MessageTEXT = [] {};
    person.answers(u"The port is gone"_qs, Answer::Ok, 10s);
    clock.after(500ms, [&] { port.unplug(); });
    // A port that fails on every look, as a driver that hangs would.
    for (const milliseconds again : {2s, 4s}) {
        clock.after(again, [&] {
            port.plugIn();
            openCom();
            port.unplug();
        });
    }
    clock.run(12s);
    EXPECT_EQ(person.texts.size(), 1);
    EXPECT_TRUE(link.TimerCom->isEnabled());
}

TEST_F(Watcher, FeedsSendsAndAsksForTheListingOnATick)
{
    int refreshes = 0;
    recordsets.display = [&] { ++refreshes; };
    link.pace.restart(2000ms);
    clock.run(2000ms);
    EXPECT_EQ(steps, QStringList{u"feed"_qs});
    EXPECT_EQ(refreshes, 2);
    EXPECT_EQ(link.pace.interval(), 3000ms) << "the empty queue slows the pace";
    EXPECT_EQ(port.written, "AT+CMGL=ALL\r");
}

TEST_F(Watcher, AsksForNoListingAtTheSlowestPace)
{
    for (const bool listing : {true, false}) {
        link.pace.restart(listing ? 28999ms : 29000ms); // the tick's own queue run slows it down
        port.written.clear();
        link.watcher.timerSendTick();
        EXPECT_EQ(!port.written.isEmpty(), listing);
    }
}

TEST_F(Watcher, DoesNothingOnATickWhileAFlagStands)
{
    ModemFlags &flags = link.flags;
    for (bool *flag : {&flags.QueueRunning, &flags.ReadingMessages, &flags.ComposingSms,
                       &flags.ModemInitRunning, &flags.WaitingForCmgs}) {
        *flag = true;
        link.watcher.timerSendTick();
        *flag = false;
    }
    module.ModemReady = false;
    link.watcher.timerSendTick();
    EXPECT_EQ(steps, QStringList());
    EXPECT_EQ(port.written, QByteArray());
    EXPECT_EQ(link.pace.interval(), kBefore);
}

TEST_F(Watcher, HurriesForANotificationWhileASmsIsComposed)
{
    link.flags.ComposingSms = true;
    link.response.setText(u"+CMTI: \"SM\",1"_qs);
    EXPECT_EQ(link.pace.interval(), 2000ms);
    clock.run(2000ms);
    EXPECT_EQ(steps, QStringList());
}

TEST_F(Watcher, RunsATickToItsEndWhateverFails)
{
    link.watcher.StartNyBruker = [] { throw RuntimeFailure(u"no such table"_qs); };
    recordsets.rsSmsOutbox.close();
    link.watcher.timerSendTick();
    EXPECT_EQ(port.written, "AT+CMGL=ALL\r");
    EXPECT_EQ(person.texts, QStringList());
}

TEST_F(Watcher, FollowsAMessageFromItsNotificationToItsHeader)
{
    link.TimerCom->setEnabled(true);
    link.pace.restart(60000ms);
    comModem.isMute = false;
    comModem.answers["AT+CMGL=ALL"] = "\r\n+CMGL: 4,\"REC UNREAD\",\"+4790000001\"\r\nhei\r\n";
    clock.run(10s);
    port.feed("\r\n+CMTI: \"SM\",4\r\n");
    // A tick for the line, two seconds for the pace, a tick for the listing.
    clock.run(1s + 2s + 1s);
    EXPECT_EQ(steps, (QStringList{u"feed"_qs, u"read"_qs}));
    EXPECT_EQ(module.MessageIndex, 4);
}

} // namespace
