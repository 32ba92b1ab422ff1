#include "ModemWorld.h"

#include <gtest/gtest.h>

namespace {

const QList<QByteArray> kDialogue =
    QByteArray("AT ATV1 AT AT&F0 AT\\Q0 ATE0 AT+CPMS=\"MT\",\"MT\",\"MT\" "
               "AT+CPMS=\"SM\",\"SM\",\"SM\" AT+CLIP=1 AT+CMGF=1 AT+CSMP=17,167,0,0 AT+CNMI=1,1 "
               "AT&W AT+CGMI AT+CGMM AT+GSN")
        .split(' ');

const QString kNotFound =
    u"\r******\rModem not found!!!\rTry another COM-port and make sure modem is installed, "
    u"and SIM card ready with PIN-code disabled"_qs;

struct Initialiser : testing::Test, ModemWorld {
    Initialiser() { person.busy = true; }

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

TEST_F(Initialiser, TakesTheModemIntoUseOnEitherLine)
{
    for (const bool network : {false, true}) {
        open(network);
        person.busy = true;
        setRow(u"None"_qs);
        int refreshes = 0;
        recordsets.display = [&] { ++refreshes; };
        link.initialiser.InitModem();
        EXPECT_EQ(modem(network).commands, kDialogue);
        EXPECT_TRUE(module.ModemReady);
        EXPECT_FALSE(link.flags.ModemInitRunning);
        EXPECT_TRUE(link.TimerCom->isEnabled());
        EXPECT_EQ(link.TimerCom->interval(), 1000ms);
        EXPECT_TRUE(link.pace.isRunning());
        EXPECT_EQ(link.pace.interval(), 10000ms);
        EXPECT_EQ(row(), u"350000000000017|Nordtone|NT-2|1|KONTOR-1"_qs);
        EXPECT_FALSE(person.busy);
        EXPECT_EQ(refreshes, 1);
        recordsets.display = {};
    }
}

TEST_F(Initialiser, AsksForReportsAndWaitsBetweenTheStepsAsModemsNeedIt)
{
    openCom();
    module.SmsReportOn = true;
    // 16 answers of 20 ms; the pauses of the table; two storages whose first line comes in 200 ms.
    constexpr milliseconds kPauses =
        10ms + 10ms + 60ms + 2 * 50ms + (50ms + 50ms) + 2 * 250ms + 7 * 50ms + 50ms;
    EXPECT_EQ(timed([&] { link.initialiser.InitModem(); }), 12 * 20ms + kPauses);
    EXPECT_EQ(comModem.commands.value(10), "AT+CSMP=49,167,0,0");
    EXPECT_EQ(comModem.commands.value(11), "AT+CNMI=1,1,0,2,1");
}

TEST_F(Initialiser, GivesUpOnAMuteModemBehindFiveAttemptsAndReleasesWhatItHad)
{
    openCom();
    comModem.isMute = true;
    const struct {
        QString owner;
        bool wasReady;
        bool released;
    } kCases[] = {{u"KONTOR-2"_qs, false, false},
                  {u"kontor-1"_qs, false, true},
                  {u"KONTOR-2"_qs, true, true}};
    for (const auto &each : kCases) {
        setRow(each.owner);
        module.ModemReady = each.wasReady;
        const QString before = row();
        comModem.commands.clear();
        person.answers(kNotFound);
        EXPECT_EQ(timed([&] { link.initialiser.InitModem(); }), 5 * (3 * 4 * 2050ms + 2 * 10ms));
        EXPECT_EQ(person.texts.last(), kNotFound);
        EXPECT_EQ(comModem.commands.join(' '), QByteArray(" AT ATV1 AT").repeated(5).mid(1));
        EXPECT_FALSE(module.ModemReady);
        EXPECT_EQ(row(), each.released ? u"0| | |0|None"_qs : before);
        // On purpose: nothing reads the line until another initialisation gets through.
        EXPECT_TRUE(link.flags.ModemInitRunning);
        EXPECT_TRUE(person.busy);
    }
}

TEST_F(Initialiser, StartsAnAttemptFromItsFirstStepWhenOneIsRefused)
{
    openCom();
    module.SmsReportOn = true; // which not every modem knows
    for (const QByteArray &refused : QList<QByteArray>{"AT&F0", "AT+CNMI=1,1,0,2,1"}) {
        comModem.commands.clear();
        comModem.answers[refused] = "\r\nERROR\r\n";
        person.answers(kNotFound);
        link.initialiser.InitModem();
        comModem.answers.remove(refused);
        const QList<QByteArray> all = std::exchange(comModem.commands, {});
        const QList<QByteArray> attempt = all.first(all.indexOf(refused) + 1);
        EXPECT_EQ(all, attempt + attempt + attempt + attempt + attempt) << refused.constData();
    }
}

TEST_F(Initialiser, LosesOnlyTimeOnAModemThatRefusesOneStorage)
{
    for (const bool network : {false, true}) {
        open(network);
        ListedModem &each = modem(network);
        const milliseconds usual = timed([&] { link.initialiser.InitModem(); });
        // Their ticks would cut the waits of the reads short.
        link.TimerCom->setEnabled(false);
        link.pace.stop();
        each.commands.clear();
        each.answers["AT+CPMS=\"MT\",\"MT\",\"MT\""] = "\r\n+CMS ERROR: 302\r\n";
        const milliseconds refused = timed([&] { link.initialiser.InitModem(); });
        EXPECT_EQ(each.commands, kDialogue);
        EXPECT_TRUE(module.ModemReady);
        // Five pauses and five empty reads; four reads for the OK; and one pause until the
        // answer of the other storage is looked for.
        const milliseconds read = network ? 1010ms : 2050ms;
        EXPECT_EQ(refused - usual, 5 * (2000ms + read) + 4 * read + 2000ms);
    }
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
        person.busy = true;
        link.initialiser.InitModem();
        EXPECT_EQ(row(), expected) << int(active);
        EXPECT_FALSE(module.ModemReady);
        EXPECT_FALSE(link.TimerCom->isEnabled());
        EXPECT_FALSE(link.flags.ModemInitRunning);
        EXPECT_FALSE(person.busy);
    }
}

TEST_F(Initialiser, ShowsWhatBreaksInsideAndLeavesTheModemAsItWas)
{
    for (const bool wasReady : {false, true}) {
        openCom();
        module.ModemReady = wasReady;
        clock.after(150ms, [&] { port.unplug(); });
        person.answers(u"The port is"_qs);
        link.initialiser.InitModem();
        EXPECT_EQ(module.ModemReady, wasReady);
        EXPECT_TRUE(link.flags.ModemInitRunning);
        port.plugIn();
    }
}

TEST_F(Initialiser, OutlivesASecondOneThatStartsInsideTheFirst)
{
    openCom();
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
