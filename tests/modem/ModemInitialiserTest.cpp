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

TEST_F(Initialiser, PutsTheModemThatItFindsIntoUse)
{
    open(false);
    int refreshes = 0;
    recordsets.display = [&] { ++refreshes; };
    link.initialiser.InitModem();
    EXPECT_TRUE(module.ModemReady);
    EXPECT_FALSE(link.flags.ModemInitRunning);
    EXPECT_EQ(link.TimerCom->isEnabled() ? link.TimerCom->interval() : 0ms, 1000ms);
    EXPECT_EQ(link.pace.isRunning() ? link.pace.interval() : 0ms, 10000ms);
    EXPECT_FALSE(person.isBusy());
    EXPECT_EQ(refreshes, 1);
}

TEST_F(Initialiser, ReleasesAModemThatWasReadyAndIsMute)
{
    open(false);
    becomes(u"mute"_qs);
    setRow(u"KONTOR-2"_qs);
    module.ModemReady = true;
    person.answers(kNotFound);
    int refreshes = 0;
    recordsets.display = [&] { ++refreshes; };
    link.initialiser.InitModem();
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
