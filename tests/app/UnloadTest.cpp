#include "app/Shell.h"

#include <gtest/gtest.h>

TEST(Unload, SavesAllTwelveInOrderAndReleasesTheModem)
{
    Shell shell;
    shell.settings.values[QStringLiteral("lastcomport")] = QStringLiteral("3");
    answerLikeAModem(shell.serial);
    shell.loadAndShow();
    ASSERT_TRUE(shell.module.ModemReady);
    shell.screen->move(40, 20);
    shell.screen->resize(1200, 800);
    shell.module.KeySelect = QStringLiteral("+4790000001");
    shell.screen->close();
    EXPECT_EQ(shell.settings.saved.join(u' '),
              QStringLiteral("MainLeft MainTop MainWidth MainHeight KeySelect LastComPort DBPath "
                             "SMSREPORT CountryCode LogoCountryCode HostName Port"));
    EXPECT_EQ(shell.settings.get(QStringLiteral("MainLeft"), {}), QStringLiteral("600"));
    EXPECT_EQ(shell.settings.get(QStringLiteral("MainWidth"), {}), QStringLiteral("18000"));
    EXPECT_EQ(shell.settings.get(QStringLiteral("KeySelect"), {}), QStringLiteral("+4790000001"));
    EXPECT_EQ(shell.settings.get(QStringLiteral("LastComPort"), {}), QStringLiteral("3"));
    EXPECT_EQ(shell.settings.get(QStringLiteral("SMSREPORT"), {}), QStringLiteral("False"));
    EXPECT_EQ(shell.settings.get(QStringLiteral("LogoCountryCode"), {}), QStringLiteral("47"));
    EXPECT_EQ(shell.modem(QStringLiteral("ModemOwner")), QStringLiteral("?"));
    EXPECT_EQ(shell.modem(QStringLiteral("ModemStatus")), QStringLiteral("0"));
    EXPECT_FALSE(shell.serial.isOpen());
    EXPECT_TRUE(shell.clock.hasEnded());
}

TEST(Unload, ComesUpWhereItWasLeft)
{
    Shell first;
    first.loadAndShow();
    first.screen->move(60, 45);
    first.screen->resize(1300, 900);
    first.screen->close();
    Shell second;
    second.settings.values = first.settings.values;
    second.loadAndShow();
    EXPECT_EQ(second.screen->pos(), first.screen->pos());
    EXPECT_EQ(second.screen->size(), first.screen->size());
}

TEST(Unload, WhileMinimisedSavesNothing)
{
    Shell shell;
    shell.loadAndShow();
    shell.screen->showMinimized();
    shell.screen->close();
    EXPECT_TRUE(shell.settings.saved.isEmpty());
    EXPECT_TRUE(shell.clock.hasEnded());
}

// The screen goes away all the same; the modem keeps its owner.
TEST(Unload, WhileTheQueueIsAtWorkSaysSoAndSavesNothing)
{
    Shell shell;
    shell.settings.values[QStringLiteral("lastcomport")] = QStringLiteral("3");
    answerLikeAModem(shell.serial);
    shell.loadAndShow();
    shell.screen->modemLink().flags.QueueRunning = true;
    shell.person.answers(shell.module.texts.ventTilSending);
    shell.screen->close();
    EXPECT_FALSE(shell.screen->isVisible());
    EXPECT_TRUE(shell.clock.hasEnded());
    EXPECT_TRUE(shell.settings.saved.isEmpty());
    EXPECT_EQ(shell.modem(QStringLiteral("ModemOwner")), shell.host.computer);
    EXPECT_EQ(shell.modem(QStringLiteral("ModemStatus")), QStringLiteral("-1"));
    EXPECT_TRUE(shell.serial.isOpen());
}

TEST(Unload, BehindAFailureOfTheDatabaseStillSaves)
{
    Shell shell;
    shell.loadAndShow();
    shell.module.DatabaseConnection.reset();
    shell.person.answers({});
    shell.screen->close();
    EXPECT_EQ(shell.settings.saved.size(), 12);
}

TEST(Unload, InTheMiddleOfTheInitialisationEndsItAtOnce)
{
    Shell shell;
    shell.settings.values[QStringLiteral("lastcomport")] = QStringLiteral("3"); // and a mute modem
    shell.clock.after(5000ms, [&] { shell.screen->unload(); });
    shell.load();
    EXPECT_TRUE(shell.clock.hasEnded());
    EXPECT_LT(shell.clock.elapsed(), 8000ms);
    EXPECT_FALSE(shell.serial.isOpen());
    EXPECT_EQ(shell.settings.saved.size(), 12);
}

TEST(Unload, UnderAnOpenQuestionEndsTheHandlerThatAsked)
{
    Shell shell;
    shell.loadAndShow();
    shell.clock.after(2000ms, [&] { shell.screen->close(); });
    shell.person.types(QStringLiteral("Com Port"), QStringLiteral("9"), 60'000ms);
    shell.entry("mnuComPortComOther").trigger();
    EXPECT_TRUE(shell.clock.hasEnded());
    EXPECT_EQ(shell.clock.elapsed(), 2010ms);
    EXPECT_EQ(shell.module.OtherComPort, 0);
}

TEST(Unload, ByTheMenuTakesTheSamePath)
{
    Shell shell;
    shell.loadAndShow();
    shell.entry("mnuFileExit").trigger();
    EXPECT_EQ(shell.settings.saved.size(), 12);
    EXPECT_FALSE(shell.screen->isVisible());
}

TEST(DatabaseMaintenance, CancelledChoiceChangesNothing)
{
    Shell shell;
    shell.load();
    shell.person.answers(QStringLiteral("avbrutt"));
    shell.entry("mnuFileDatabase").trigger();
    EXPECT_EQ(shell.module.DatabasePath, shell.database.path());
}

TEST(DatabaseMaintenance, ChosenFileIsReadAndRemembered)
{
    Shell shell;
    TestDatabase other;
    other.add(QStringLiteral("KEYTable"), QStringLiteral("KeyNummer,KeyNavn,KeySikkerhet"),
              {QStringLiteral("+4790000008"), QStringLiteral("Annen dør"), QStringLiteral("4")});
    shell.load();
    shell.person.picksFile(other.path());
    shell.entry("mnuFileDatabase").trigger();
    EXPECT_EQ(shell.screen->recordsets().doorName(), QStringLiteral("Annen dør"));
    shell.screen->unload();
    EXPECT_EQ(shell.settings.get(QStringLiteral("DBPath"), {}), other.path());
}

TEST(DatabaseMaintenance, CompactionAsksAndLeavesABackup)
{
    Shell shell;
    shell.load();
    shell.person.answers(QStringLiteral("alenetilgang"), Answer::Cancel);
    shell.entry("mnuFileCompactDatabase").trigger();
    EXPECT_FALSE(QFile::exists(shell.module.BackupDatabasePath));

    shell.person.answers(QStringLiteral("alenetilgang"));
    shell.person.answers(QStringLiteral("komprimert"));
    shell.entry("mnuFileCompactDatabase").trigger();
    EXPECT_TRUE(QFile::exists(shell.module.BackupDatabasePath));
    EXPECT_FALSE(shell.screen->recordsets().CompactRequested);
    EXPECT_FALSE(shell.modem(QStringLiteral("ModemOwner")).isEmpty());
}

// The copy that an earlier failure left behind stops the next one, and is for a person to remove.
TEST(DatabaseMaintenance, FailedCompactionSaysSoTwiceAndConnectsAgain)
{
    Shell shell;
    shell.load();
    QFile left(shell.module.TempDatabasePath);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    shell.person.answers(QStringLiteral("alenetilgang"));
    shell.person.answers({});
    shell.person.answers(QStringLiteral("Feil med komprimering"));
    shell.entry("mnuFileCompactDatabase").trigger();
    EXPECT_TRUE(shell.module.DatabaseConnection);
    EXPECT_TRUE(shell.screen->recordsets().rsModem.isOpen());
    EXPECT_FALSE(shell.screen->recordsets().CompactRequested);
}
