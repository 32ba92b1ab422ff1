#include "ModemWorld.h"

#include <gtest/gtest.h>

namespace {

const QString kNotFound =
    u"\r******\rModem not found!!!\rTry another COM-port and make sure modem is installed, "
    u"and SIM card ready with PIN-code disabled"_qs;

struct Initialiser : testing::Test, ModemWorld {
    Initialiser() { person.setBusy(&module, true); }

    void setRow(const QString &owner)
    {
        database.look().run(u"UPDATE Modem SET ModemOwner = ?, ModemName = 'NT-1'"_qs, {owner});
        recordsets.OpenRecordsets();
    }
    QString row()
    {
        return database.single(u"SELECT IMEICODE || '|' || ModemManufacturer || '|' || ModemName"
                               " || '|' || (ModemStatus <> 0) || '|' || ModemOwner FROM Modem"_qs);
    }
};

TEST_F(Initialiser, WaitsBetweenTheStepsAsModemsNeedItAndLongerForAStorageThatIsRefused)
{
    // The pauses of the table; two storages whose first line comes in 200 ms.
    constexpr milliseconds kUsual =
        10ms + 10ms + 60ms + 2 * 50ms + (50ms + 50ms) + 2 * 250ms + 7 * 50ms + 50ms;
    for (const bool onNetwork : {false, true}) {
        open(onNetwork);
        becomes();
        person.setBusy(&module, true);
        int refreshes = 0;
        recordsets.display = [&] { ++refreshes; };
        const milliseconds usual = timed([&] { link.initialiser.InitModem(); });
        EXPECT_GE(usual, kUsual);
        EXPECT_TRUE(onNetwork || usual == kUsual);
        EXPECT_FALSE(link.flags.ModemInitRunning);
        EXPECT_TRUE(link.TimerCom->isEnabled());
        EXPECT_EQ(link.TimerCom->interval(), 1000ms);
        EXPECT_TRUE(link.pace.isRunning());
        EXPECT_EQ(link.pace.interval(), 10000ms);
        EXPECT_FALSE(person.isBusy());
        EXPECT_EQ(refreshes, 1);

        // Their ticks would cut the waits of the reads short.
        link.TimerCom->setEnabled(false);
        link.pace.stop();
        becomes(u"nomt"_qs);
        // Five pauses and five empty reads; four reads for the OK; and one pause until the
        // answer of the other storage is looked for.
        const milliseconds read = onNetwork ? 1010ms : 2050ms;
        EXPECT_EQ(timed([&] { link.initialiser.InitModem(); }) - usual,
                  5 * (2000ms + read) + 4 * read + 2000ms);
        EXPECT_TRUE(module.ModemReady);
        recordsets.display = {};
    }
}

TEST_F(Initialiser, GivesUpOnAMuteModemBehindFiveAttemptsAndReleasesTheOneThatWasReady)
{
    open(false);
    becomes(u"mute"_qs);
    setRow(u"KONTOR-2"_qs);
    module.ModemReady = true;
    person.answers(kNotFound);
    int refreshes = 0;
    recordsets.display = [&] { ++refreshes; };
    EXPECT_EQ(timed([&] { link.initialiser.InitModem(); }), 5 * (3 * 4 * 2050ms + 2 * 10ms));
    EXPECT_EQ(person.texts, QStringList{kNotFound});
    EXPECT_FALSE(module.ModemReady);
    EXPECT_EQ(row(), u"0| | |0|None"_qs);
    EXPECT_EQ(refreshes, 1);
    // On purpose: nothing reads the line until another initialisation gets through.
    EXPECT_TRUE(link.flags.ModemInitRunning);
    EXPECT_TRUE(person.isBusy());
}

TEST_F(Initialiser, StopsTheTimersWithoutALine)
{
    const QString released = u"0|No Modem| |0|?"_qs;
    const std::tuple<quint8, bool, QString> kCases[] = {
        {0, true, released}, {255, true, released}, {0, false, u"?|?|NT-1|0|KONTOR-1"_qs}};
    for (const auto &[active, wasReady, expected] : kCases) {
        database.look().run(u"UPDATE Modem SET IMEICODE = '?', ModemManufacturer = '?'"_qs);
        setRow(u"KONTOR-1"_qs);
        module.ActiveComPort = active;
        module.ModemReady = wasReady;
        link.TimerCom->setEnabled(true);
        link.flags.ModemInitRunning = true; // as a failed search leaves it
        person.setBusy(&module, true);
        link.initialiser.InitModem();
        EXPECT_EQ(row(), expected) << int(active);
        EXPECT_FALSE(module.ModemReady);
        EXPECT_FALSE(link.TimerCom->isEnabled());
        EXPECT_FALSE(link.flags.ModemInitRunning);
        EXPECT_FALSE(person.isBusy());
    }
}

TEST_F(Initialiser, ShowsWhatBreaksInsideAndLeavesTheModemAsItWas)
{
    for (const bool wasReady : {false, true}) {
        open(false);
        module.ModemReady = wasReady;
        clock.after(150ms, [&] { port.unplug(); });
        person.answers(u"The port is"_qs);
        link.initialiser.InitModem();
        EXPECT_EQ(module.ModemReady, wasReady);
        EXPECT_TRUE(link.flags.ModemInitRunning);
        port.plugIn();
    }
}

TEST_F(Initialiser, LeavesTheModemInUseWhenItsRowCannotBeWritten)
{
    open(false);
    database.look().run(u"CREATE TRIGGER locked BEFORE UPDATE ON Modem BEGIN "
                        "SELECT RAISE(ABORT, 'locked'); END"_qs);
    person.answers(u"locked"_qs, 1min);
    clock.after(30s, [&] { // the box still stands
        EXPECT_EQ(link.flags.owner.who(), LineOwner::Who::Nobody);
        EXPECT_FALSE(link.flags.ModemInitRunning);
    });
    link.initialiser.InitModem();
    EXPECT_TRUE(module.ModemReady);
    EXPECT_TRUE(link.TimerCom->isEnabled());
    EXPECT_FALSE(person.isBusy());
}

TEST_F(Initialiser, SetsAModemUpAgainAndTellsOnceThatItDoesNotAnswer)
{
    ready(false);
    setRow(u"KONTOR-1"_qs);
    const QString before = row();
    for (int outages = 0; outages < 2; ++outages) {
        becomes(u"mute"_qs);
        person.answers(kNotFound);
        EXPECT_FALSE(link.initialiser.setUpAgain());
        EXPECT_FALSE(link.initialiser.setUpAgain());
        EXPECT_FALSE(link.flags.ModemInitRunning) << "it may answer yet";
        EXPECT_TRUE(module.ModemReady);
        becomes();
        EXPECT_TRUE(link.initialiser.setUpAgain());
        EXPECT_FALSE(link.flags.ModemInitRunning);
    }
    port.unplug();
    EXPECT_FALSE(link.initialiser.setUpAgain());
    EXPECT_NE(row(), before);
}

TEST_F(Initialiser, OutlivesASecondOneThatStartsInsideTheFirst)
{
    open(false);
    bool inner = false;
    clock.after(300ms, [&] {
        link.initialiser.InitModem();
        inner = module.ModemReady;
    });
    link.initialiser.InitModem();
    EXPECT_TRUE(inner);
    EXPECT_TRUE(module.ModemReady);
    EXPECT_FALSE(link.flags.ModemInitRunning);
}

} // namespace
