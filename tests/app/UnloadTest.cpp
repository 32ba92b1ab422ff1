#include "app/Shell.h"
#include "data/FileUse.h"

#include <QFile>
#include <QTableView>

namespace {
const QString kUser = QStringLiteral("+4791234567");
using Unload = ShellTest;
using DatabaseMaintenance = ShellTest;
} // namespace

TEST_F(Unload, SavesAllTwelveInOrderAndComesUpWhereItWasLeft)
{
    settings.values[u"lastcomport"_qs] = u"3"_qs;
    loadAndShow();
    ASSERT_TRUE(module.ModemReady);
    EXPECT_TRUE(entry("mnuComPortCom3").isChecked());
    screen->move(40, 20);
    screen->resize(1300, 900);
    module.KeySelect = u"+4790000001"_qs;
    screen->close();
    EXPECT_EQ(settings.saved.join(u' '),
              u"MainLeft MainTop MainWidth MainHeight KeySelect LastComPort DBPath "
              "SMSREPORT CountryCode LogoCountryCode HostName Port");
    EXPECT_EQ(settings.get(u"MainLeft"_qs, {}), u"600");
    EXPECT_EQ(settings.get(u"SMSREPORT"_qs, {}), u"False");
    EXPECT_EQ(modemRow(u"ModemOwner"_qs), u"?");
    EXPECT_EQ(modemRow(u"ModemStatus"_qs), u"0");
    EXPECT_FALSE(port.isOpen());
    EXPECT_TRUE(clock.hasEnded());

    Shell next;
    next.settings.values = settings.values;
    next.loadAndShow();
    EXPECT_EQ(next.screen->pos(), QPoint(40, 20));
    EXPECT_EQ(next.screen->size(), QSize(1300, 900));
    EXPECT_EQ(next.module.KeySelect, u"+4790000001");
    EXPECT_EQ(next.port.device, u"COM3");
}

TEST_F(Unload, WhileMinimisedSavesNothing)
{
    loadAndShow();
    screen->showMinimized();
    entry("mnuFileExit").trigger();
    EXPECT_TRUE(settings.saved.isEmpty());
    EXPECT_TRUE(clock.hasEnded());
}

TEST_F(Unload, UnderAnOpenQuestionEndsTheHandlerThatAsked)
{
    loadAndShow();
    clock.after(2000ms, [&] { screen->close(); });
    person.types(u"Com Port"_qs, u"9"_qs, 60'000ms);
    entry("mnuComPortComOther").trigger();
    EXPECT_EQ(clock.elapsed(), 2010ms);
    EXPECT_EQ(module.OtherComPort, 0);
}

TEST_F(DatabaseMaintenance, ReadsAndRemembersTheChosenFileAndNothingWhenCancelled)
{
    TestDatabase other;
    other.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
              {u"+4790000008"_qs, u"Annen dør"_qs, u"4"_qs});
    database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
                 {u"1"_qs, u"Denne døren"_qs, u"4"_qs});
    database.add(u"NYEbrukere"_qs, u"Bruker,KeyNummer"_qs, {kUser, u"1"_qs});
    database.letGo();
    loadAndShow();
    const auto rowsShown = [&] { return find<QTableView>("DataGrid1").model()->rowCount(); };
    EXPECT_EQ(rowsShown(), 1);
    find<QLineEdit>("Txtfields_0").setText(kUser);
    person.answers(u"avbrutt"_qs);
    entry("mnuFileDatabase").trigger();
    EXPECT_EQ(module.DatabasePath, database.path());
    person.picksFile(other.path());
    entry("mnuFileDatabase").trigger();
    EXPECT_EQ(screen->recordsets().doorName(), u"Annen dør");
    EXPECT_EQ(rowsShown(), 0);
    EXPECT_EQ(find<QLineEdit>("Txtfields_0").text(), QString());
    EXPECT_NO_THROW(FileUse::alone(database.path())) << "the former file is still in use";
    screen->unload();
    EXPECT_EQ(settings.get(u"DBPath"_qs, {}), other.path());
}

// No box but the two of the failure, while they stand open and afterwards.
TEST_F(DatabaseMaintenance, LeavesNothingOfTheFormerFileWhereTheChosenOneCannotBeOpened)
{
    database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
                 {u"1"_qs, u"Denne døren"_qs, u"4"_qs});
    database.add(u"NYEbrukere"_qs, u"Bruker,KeyNummer"_qs, {kUser, u"1"_qs});
    loadAndShow();
    person.answers(u"Finner ikke databasefilen"_qs, Answer::Ok, 60s);
    person.answers(u"Ingen database er åpen"_qs, Answer::Ok, 60s);
    person.picksFile(database.filePath(u"borte.mdb"_qs));
    entry("mnuFileDatabase").trigger();
    clock.run(60s);
    EXPECT_EQ(find<QTableView>("DataGrid1").model()->rowCount(), 0);
    EXPECT_EQ(screen->recordsets().doorNumber(), QString());
    for (const Recordset *set : {&screen->recordsets().rsModem, &screen->recordsets().rsVisBrukere,
                                 &screen->recordsets().rsSmsOutbox}) {
        EXPECT_FALSE(set->isOpen());
    }
}

TEST_F(DatabaseMaintenance, CompactsWhenConfirmedAndConnectsAgainWhenItFailed)
{
    load();
    const auto compact = [&](Answer answer, const QStringList &then) {
        person.answers(u"alenetilgang"_qs, answer);
        for (const QString &words : then) {
            person.answers(words);
        }
        entry("mnuFileCompactDatabase").trigger();
        EXPECT_TRUE(screen->recordsets().rsModem.isOpen());
        EXPECT_FALSE(screen->recordsets().CompactRequested);
    };
    compact(Answer::Cancel, {});
    EXPECT_FALSE(QFile::exists(module.BackupDatabasePath));
    entry("mnuDatafrmKatalog").trigger(); // screens hold the file, too
    entry("mnuSMSReceived").trigger();
    compact(Answer::Ok, {u"komprimert"_qs});
    EXPECT_TRUE(QFile::exists(module.BackupDatabasePath));
    EXPECT_FALSE(modemRow(u"ModemOwner"_qs).isEmpty());
    // A copy that an earlier failure left behind stops the next, and is for a person to remove.
    ASSERT_TRUE(QFile(module.TempDatabasePath).open(QIODevice::WriteOnly));
    compact(Answer::Ok, {{}, u"Feil med komprimering"_qs});
}
