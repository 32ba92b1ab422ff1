#include "app/Shell.h"
#include "data/FileUse.h"

#include <QFile>
#include <QTabBar>
#include <QTableView>

namespace {
const QString kFilter = QStringLiteral("Access (*.mdb);;All (*.*)");
const QString kUser = QStringLiteral("+4791234567");
using Unload = ShellTest;

struct DatabaseMaintenance : ShellTest {
    /// On a door with one waiting period, whose number is typed in.
    void openWithOneWaiting()
    {
        database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
                     {u"1"_qs, u"Denne døren"_qs, u"4"_qs});
        database.add(u"NYEbrukere"_qs, u"Bruker,KeyNummer"_qs, {kUser, u"1"_qs});
        database.letGo();
        loadAndShow();
        ASSERT_EQ(rowsShown(), 1);
        find<QLineEdit>("Txtfields_0").setText(kUser);
    }
    int rowsShown() { return find<QTableView>("DataGrid1").model()->rowCount(); }
};

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
    find<QLineEdit>("txtHostName").setText(u"modem.example"_qs);
    find<QLineEdit>("txtPort").setText(u"2001"_qs);
    screen->close();
    QStringList saved;
    for (const QString &key : settings.saved) {
        saved += key + u'=' + settings.get(key, {});
    }
    EXPECT_EQ(saved.join(u' ').toStdString(),
              "MainLeft=600 MainTop=300 MainWidth=19500 MainHeight=13500 KeySelect=+4790000001 "
              "LastComPort=3 DBPath=" +
                  database.path().toStdString() +
                  " SMSREPORT=False CountryCode=47 LogoCountryCode=47 HostName=modem.example "
                  "Port=2001");
    EXPECT_EQ(database.rows(u"SELECT IMEICODE, ModemManufacturer, ModemName, ModemOwner,"
                            " ModemStatus FROM Modem"_qs),
              QStringList{u"0| | |?|0"_qs});
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

TEST_F(DatabaseMaintenance, ReadsAndRemembersTheChosenFileAndKeepsNothingOfTheFormer)
{
    TestDatabase other;
    other.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
              {u"+4790000008"_qs, u"Annen dør"_qs, u"4"_qs});
    openWithOneWaiting();
    person.picksFile(database.path(), kFilter, {});
    person.answers(u"avbrutt"_qs);
    entry("mnuFileDatabase").trigger();
    EXPECT_EQ(module.DatabasePath, database.path());
    person.picksFile(database.path(), kFilter, other.path());
    entry("mnuFileDatabase").trigger();
    EXPECT_EQ(screen->recordsets().doorName(), u"Annen dør");
    EXPECT_EQ(rowsShown(), 0);
    EXPECT_EQ(find<QLineEdit>("Txtfields_0").text(), QString());
    EXPECT_NO_THROW(FileUse::alone(database.path())) << "the former file is still in use";
    other.add(u"NYEbrukere"_qs, u"Bruker,KeyNummer"_qs, {kUser, u"+4790000008"_qs});
    find<QTabBar>("TabStrip1").setCurrentIndex(1);
    find<QTabBar>("TabStrip1").setCurrentIndex(0);
    EXPECT_EQ(rowsShown(), 1);
    // Where it cannot be opened nothing of the former file is left, and no box but two comes up.
    person.picksFile(other.path(), kFilter, other.filePath(u"borte.mdb"_qs));
    person.answers(u"Finner ikke databasefilen"_qs, 60s);
    person.answers(u"Ingen database er åpen"_qs, 60s);
    entry("mnuFileDatabase").trigger();
    clock.run(60s);
    EXPECT_EQ(rowsShown(), 0);
    EXPECT_EQ(screen->recordsets().doorNumber(), QString());
    for (const Recordset *set : {&screen->recordsets().rsModem, &screen->recordsets().rsVisBrukere,
                                 &screen->recordsets().rsSmsOutbox}) {
        EXPECT_FALSE(set->isOpen());
    }
    person.answers(u"Ingen database er åpen"_qs); // OpenRecordsets
    screen->unload();
    EXPECT_EQ(settings.get(u"DBPath"_qs, {}), other.filePath(u"borte.mdb"_qs));
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
