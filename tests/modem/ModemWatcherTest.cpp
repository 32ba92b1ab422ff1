#include "ModemWorld.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace {

constexpr milliseconds kBefore = 4500ms;

struct Watcher : testing::Test, ModemWorld {
    Watcher()
    {
        open(false);
        becomes(u"mute"_qs);
        module.ModemReady = true;
        link.pace.restart(kBefore);
    }
};

// The plain ones are in the transcripts.
TEST_F(Watcher, TakesEachLineForTheFirstThatItHolds)
{
    const QString message = u"Mottar SMS"_qs;
    const QString report = u"Mottar Kvittering"_qs;
    const struct {
        QString line;
        bool pending; ///< between two messages of the queue
        milliseconds interval;
        QString panel;
        bool asksForListing;
        bool stillReading;
    } kLines[] = {{u"+CMTI: \"SM\",3"_qs, true, kBefore, message, true, true},
                  // The listing on its way has this one in it.
                  {u"+CDSI: \"SM\",3"_qs, true, kBefore, report, false, true},
                  {u"+CMTI +CDSI: "_qs, false, 2000ms, message, false, true},
                  {u"+CMTI OK"_qs, false, 2000ms, message, false, true},
                  {u"OK"_qs, true, kBefore, {}, false, false},
                  {u"look"_qs, false, 6750ms, {}, false, false},
                  {u"+CMS ERROR: 500"_qs, false, 2000ms, {}, false, true},
                  {u"ERROR"_qs, true, kBefore, {}, false, true},
                  {u"OK ERROR"_qs, false, 2000ms, {}, false, false},
                  {u"+CDSI: \"SM\",3"_qs, true, kBefore, report, true, true},
                  {u"RING"_qs, false, kBefore, {}, false, true}};
    for (const auto &expected : kLines) {
        SCOPED_TRACE(expected.line.toStdString());
        link.response.setText({});
        link.flags.QueuePending = expected.pending;
        link.flags.ReadingMessages = true;
        link.pace.restart(kBefore);
        view.panels.clear();
        port.written.clear();
        port.feed(expected.line.toLatin1() + "\r\n");
        link.watcher.timerComTick();
        EXPECT_EQ(link.pace.interval(), expected.interval);
        EXPECT_EQ(view.panels.value(2), expected.panel);
        EXPECT_EQ(port.written, expected.asksForListing ? "AT+CMGL=ALL\r" : "");
        EXPECT_EQ(link.flags.ReadingMessages, expected.stillReading);
        EXPECT_EQ(steps, QStringList());
    }
}

TEST_F(Watcher, TakesNoLineWhileAnotherOwnsTheModem)
{
    link.TimerCom->setEnabled(true);
    port.feed("RING\r\n");
    const auto takes = [&](bool &flag, bool value) {
        const bool usual = std::exchange(flag, value);
        clock.run(1000ms);
        flag = usual;
        return !link.response.text().isEmpty();
    };
    EXPECT_FALSE(takes(module.ModemReady, false));
    EXPECT_FALSE(takes(link.flags.QueueRunning, true));
    EXPECT_FALSE(takes(link.flags.ModemInitRunning, true));
    EXPECT_TRUE(takes(link.flags.ComposingSms, true));
}

TEST_F(Watcher, FeedsSendsAndAsksForTheListingOnATick)
{
    int refreshes = 0;
    recordsets.display = [&] { ++refreshes; };
    link.pace.restart(2000ms);
    clock.run(2000ms);
    EXPECT_EQ(steps, QStringList{u"feed"_qs});
    EXPECT_EQ(refreshes, 2);
    EXPECT_EQ(port.written, "AT+CMGL=ALL\r");
    // A record that is named while that one is on its way must not be forgotten.
    link.flags.QueuePending = true;
    link.pace.restart(60s);
    port.feed("+CMTI: \"SM\",1\r\n");
    link.watcher.timerComTick();
    link.watcher.timerSendTick();
    EXPECT_EQ(port.written.count("AT+CMGL"), 1) << "the one on its way has not ended";
    port.feed("OK\r\n");
    link.watcher.timerComTick();
    link.watcher.timerSendTick();
    EXPECT_EQ(port.written.count("AT+CMGL"), 2);
}

TEST_F(Watcher, TakesLinesThoughABoxHoldsUpTheReadThatItWasOpenedIn)
{
    link.TimerCom->setEnabled(true);
    port.feed("RI"); // the begin of a line
    person.answers(u"Lukke?"_qs, 5min);
    clock.after(1500ms, [&] { person.messageBox(u"Lukke?"_qs, {}, Buttons::Ok); });
    clock.after(3s, [&] { port.feed("NG\r\n"); });
    clock.after(4200ms, [&] { EXPECT_EQ(link.response.text(), u"RING"_qs); });
    clock.after(1min, [&] { port.feed("+CMTI: \"SM\",1\r\n"); });
    clock.after(62s, [&] { EXPECT_EQ(view.panels.value(2), u"Mottar SMS"_qs); });
    clock.run(10min);
    EXPECT_EQ(person.texts, QStringList{u"Lukke?"_qs});
}

TEST_F(Watcher, SetsUpAModemThatHasForgottenItsSettingsOnceAMinute)
{
    int starts = 0;
    link.watcher.SetUpAgain = [&] {
        link.flags.HasForgotten = false;
        return ++starts > 0;
    };
    const auto startsBehindAnEcho = [&] {
        link.line.SendData(u"AT+CMGL=ALL\r"_qs);
        port.feed("AT+CMGL=ALL\r\n");
        link.watcher.timerComTick();
        link.watcher.timerSendTick();
        return starts;
    };
    EXPECT_EQ(startsBehindAnEcho(), 1);
    EXPECT_EQ(view.panelHistory,
              (QStringList{u"Modemet settes opp på nytt"_qs, u"Klar for innkommende SMS"_qs}));
    EXPECT_EQ(startsBehindAnEcho(), 1) << "not so soon";
    clock.run(2min);
    EXPECT_EQ(starts, 2);
    clock.run(2min);
    link.flags.EchoIsUsual = true;
    EXPECT_EQ(startsBehindAnEcho(), 2) << "as it is";
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
    for (const LineOwner::Who who :
         {LineOwner::Who::Interpreter, LineOwner::Who::Queue, LineOwner::Who::Initialiser}) {
        const LineOwner::Turn turn(flags.owner, who);
        link.watcher.timerSendTick();
    }
    module.ModemReady = false;
    link.watcher.timerSendTick();
    EXPECT_EQ(steps, QStringList());
    EXPECT_EQ(port.written, QByteArray());
    EXPECT_EQ(link.pace.interval(), kBefore);
}

TEST_F(Watcher, RunsATickToItsEndWhateverFails)
{
    link.watcher.StartNyBruker = [] { throw RuntimeFailure(u"no such table"_qs); };
    recordsets.rsSmsOutbox.close();
    link.watcher.timerSendTick();
    EXPECT_EQ(port.written, "AT+CMGL=ALL\r");
    EXPECT_EQ(person.texts, QStringList());
    module.DatabaseConnection.reset();
    person.answers(u"Ingen database er åpen"_qs); // once
    for (int ticks = 0; ticks < 2; ++ticks) {
        link.watcher.listingEnded();
        link.watcher.timerSendTick();
    }
    EXPECT_EQ(port.written, QByteArray("AT+CMGL=ALL\r").repeated(3));
}

} // namespace
