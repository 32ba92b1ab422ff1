#include "app/Shell.h"

#include <QFile>

#include <gtest/gtest.h>

TEST(Unload, SavesAllTwelveInOrderAndComesUpWhereItWasLeft)
{
    Shell shell;
    shell.modemOn(u"3"_qs);
    shell.loadAndShow();
    ASSERT_TRUE(shell.module.ModemReady);
    EXPECT_TRUE(shell.entry("mnuComPortCom3").isChecked());
    shell.screen->move(40, 20);
    shell.screen->resize(1300, 900);
    shell.module.KeySelect = u"+4790000001"_qs;
    shell.screen->close();
    EXPECT_EQ(shell.settings.saved.join(u' '),
              u"MainLeft MainTop MainWidth MainHeight KeySelect LastComPort DBPath "
              "SMSREPORT CountryCode LogoCountryCode HostName Port");
    EXPECT_EQ(shell.settings.get(u"MainLeft"_qs, {}), u"600");
    EXPECT_EQ(shell.settings.get(u"SMSREPORT"_qs, {}), u"False");
    EXPECT_EQ(shell.modem(u"ModemOwner"_qs), u"?");
    EXPECT_EQ(shell.modem(u"ModemStatus"_qs), u"0");
    EXPECT_FALSE(shell.serial.isOpen());
    EXPECT_TRUE(shell.clock.hasEnded());

    Shell next;
    next.modemOn({});
    next.settings.values = shell.settings.values;
    next.loadAndShow();
    EXPECT_EQ(next.screen->pos(), QPoint(40, 20));
    EXPECT_EQ(next.screen->size(), QSize(1300, 900));
    EXPECT_EQ(next.module.KeySelect, u"+4790000001");
    EXPECT_EQ(next.serial.device, u"COM3");
}

TEST(Unload, WhileMinimisedSavesNothing)
{
    Shell shell;
    shell.loadAndShow();
    shell.screen->showMinimized();
    shell.entry("mnuFileExit").trigger();
    EXPECT_TRUE(shell.settings.saved.isEmpty());
    EXPECT_TRUE(shell.clock.hasEnded());
}

TEST(Unload, UnderAnOpenQuestionEndsTheHandlerThatAsked)
{
    Shell shell;
    shell.loadAndShow();
    shell.clock.after(2000ms, [&] { shell.screen->close(); });
    shell.person.types(u"Com Port"_qs, u"9"_qs, 60'000ms);
    shell.entry("mnuComPortComOther").trigger();
    EXPECT_EQ(shell.clock.elapsed(), 2010ms);
    EXPECT_EQ(shell.module.OtherComPort, 0);
}

TEST(DatabaseMaintenance, ReadsAndRemembersTheChosenFileAndNothingWhenCancelled)
{
    Shell shell;
    TestDatabase other;
    other.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
              {u"+4790000008"_qs, u"Annen dør"_qs, u"4"_qs});
    shell.load();
    shell.person.answers(u"avbrutt"_qs);
    shell.entry("mnuFileDatabase").trigger();
    EXPECT_EQ(shell.module.DatabasePath, shell.database.path());
    shell.person.picksFile(other.path());
    shell.entry("mnuFileDatabase").trigger();
    EXPECT_EQ(shell.screen->recordsets().doorName(), u"Annen dør");
    shell.screen->unload();
    EXPECT_EQ(shell.settings.get(u"DBPath"_qs, {}), other.path());
}

TEST(DatabaseMaintenance, CompactsWhenConfirmedAndConnectsAgainWhenItFailed)
{
    Shell shell;
    shell.load();
    const auto compact = [&](Answer answer, const QStringList &then) {
        shell.person.answers(u"alenetilgang"_qs, answer);
        for (const QString &words : then) {
            shell.person.answers(words);
        }
        shell.entry("mnuFileCompactDatabase").trigger();
        EXPECT_TRUE(shell.screen->recordsets().rsModem.isOpen());
        EXPECT_FALSE(shell.screen->recordsets().CompactRequested);
    };
    compact(Answer::Cancel, {});
    EXPECT_FALSE(QFile::exists(shell.module.BackupDatabasePath));
    compact(Answer::Ok, {u"komprimert"_qs});
    EXPECT_TRUE(QFile::exists(shell.module.BackupDatabasePath));
    EXPECT_FALSE(shell.modem(u"ModemOwner"_qs).isEmpty());
    // A copy that an earlier failure left behind stops the next, and is for a person to remove.
    ASSERT_TRUE(QFile(shell.module.TempDatabasePath).open(QIODevice::WriteOnly));
    compact(Answer::Ok, {{}, u"Feil med komprimering"_qs});
}
