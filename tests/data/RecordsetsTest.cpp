#include "data/Recordsets.h"
#include "data/DataTest.h"
#include "data/Module1.h"
#include "support/Doubles.h"

#include <QDir>

#include <csignal>
#include <sys/resource.h>

namespace {

struct RecordsetsTest : DataTest {
    RecordsetsTest()
    {
        addDoor(u"+4790000001"_qs, u"Hovedport"_qs, u"5"_qs);
        addDoor(u"+4790000002"_qs, u"Garasje"_qs, u"6"_qs);
        addDoor(u"+4790000003"_qs, u"Tårn"_qs, u"7"_qs);
        database.use(module);
        recordsets.display = [this] { ++displays; };
    }
    void addDoor(const QString &number, const QString &name, const QString &level)
    {
        database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs, {number, name, level});
    }

    VirtualClock clock;
    ScriptedOperator person{clock};
    Module1 module;
    Recordsets recordsets{module, person};
    int displays = 0;
};

TEST_F(RecordsetsTest, CurrentDoorIsShownWithItsUsersElseTheFirst)
{
    addUser(u"a"_qs, u"+4790000002"_qs);
    addUser(u"b"_qs, u"+4790000001"_qs);
    addDoor(u"+4790000010"_qs, u"Ti"_qs, u"10"_qs);  // levels compare as text
    addDoor(u" +4790000001"_qs, u"Bod"_qs, u"1"_qs); // another one than without the blank
    for (const auto &[key, shown] :
         {std::pair(u"+4790000002"_qs, "Garasje: a"),
          {u" +4790000001"_qs, "Bod: "},
          {u"+4790000003"_qs, "Hovedport: b"}}) { // the last one is above the level
        module.KeySelect = key;
        recordsets.OpenRecordsets();
        EXPECT_EQ(recordsets.doorName().toStdString() + ": " + column(recordsets.rsBrukereKey, 0),
                  shown);
    }
    EXPECT_EQ(column(recordsets.rsKeyAllowed, 1), "Hovedport|Garasje|Ti|Bod");
    EXPECT_TRUE(recordsets.rsKeyAllowed.eof());
    EXPECT_EQ(displays, 3);
}

TEST_F(RecordsetsTest, EmptyTablesAreNoFailure)
{
    run(u"DELETE FROM KEYTable"_qs);
    run(u"DELETE FROM Modem"_qs);
    recordsets.OpenRecordsets();
    EXPECT_EQ(displays, 1);
    EXPECT_EQ(recordsets.doorNumber(), QString());
    EXPECT_TRUE(recordsets.rsSmsReceived.eof() && recordsets.rsSmsReceived.bof());
    EXPECT_EQ(modemPanelText(module, recordsets.rsModem, u"ComPort"_qs, {}), u"  på ComPort");
}

TEST_F(RecordsetsTest, ModemPanelNamesThePlaceOfAReadyLineOnly)
{
    run(u"UPDATE Modem SET ModemManufacturer = 'Acme', ModemName = 'M1'"_qs);
    recordsets.OpenRecordsets();
    QString seen;
    for (const auto &[port, ready] :
         {std::pair(7, true), {7, false}, {255, true}, {255, false}, {0, true}}) {
        module.ActiveComPort = static_cast<quint8>(port);
        module.ModemReady = ready;
        seen +=
            modemPanelText(module, recordsets.rsModem, u"ComPort"_qs, u"vert"_qs).mid(11) + u' ';
    }
    EXPECT_EQ(seen, u"COM7 ComPort vert ComPort ComPort ");
}

TEST_F(RecordsetsTest, MessagesStandWhereTheirStateSays)
{
    run(u"INSERT INTO SMS_Sent (CMGS) VALUES ('UNSENT'), ('17'), ('unsent '), ('SLETTET'),"
        " ('ERROR')"_qs);
    run(u"INSERT INTO SMS_Received (SMS_Text) VALUES ('første'), ('siste')"_qs);
    recordsets.OpenRecordsets();
    EXPECT_EQ(recordsets.rsSmsOutbox.recordCount(), 3);
    EXPECT_EQ(recordsets.rsSmsSentDone.recordCount(), 3);
    EXPECT_EQ(recordsets.rsSmsReceived.text(u"SMS_Text"_qs), u"siste");
    // Within a day the queue keeps the table's order.
    recordsets.rsSmsOutbox.sort(u"datolng"_qs);
    EXPECT_EQ(recordsets.rsSmsOutbox.text(u"ID"_qs), u"1");
    // A row that leaves the queue stays in the set until the next refresh.
    recordsets.rsSmsOutbox.setValue(u"CMGS"_qs, u"18"_qs);
    recordsets.rsSmsOutbox.update();
    EXPECT_EQ(recordsets.rsSmsOutbox.text(u"CMGS"_qs), u"18");
    recordsets.rsSmsOutbox.moveNext();
    EXPECT_EQ(recordsets.rsSmsOutbox.text(u"ID"_qs), u"3");
}

TEST_F(RecordsetsTest, DoorsAreCountedForEachUserOnce)
{
    for (const auto &user : {u"+4791000001"_qs, u"+4791000002"_qs, u"+4791000001 "_qs}) {
        addUser(user, u"+4790000001"_qs);
    }
    recordsets.OpenRecordsets();
    EXPECT_EQ(recordsets.rsKeyAntall.recordCount(), 2);
    ASSERT_TRUE(recordsets.rsKeyAntall.findFirst(u"KeyBruker"_qs, u"+4791000001"_qs));
    EXPECT_EQ(recordsets.rsKeyAntall.text(u"KEY_Antall"_qs), u"2");
}

TEST_F(RecordsetsTest, FailureIsShownAndStopsTheRefreshWhereItStands)
{
    recordsets.OpenRecordsets();
    run(u"ALTER TABLE Katalog RENAME TO Borte"_qs);
    person.answers(u"Katalog"_qs);
    recordsets.OpenRecordsets();
    EXPECT_FALSE(recordsets.rsKatalog.isOpen());
    EXPECT_TRUE(recordsets.rsBrukereKey.isOpen());
    module.KeySelect = u"x' OR '1'='1"_qs;
    person.answers(u"apostrof"_qs);
    recordsets.OpenRecordsets();

    module.DatabasePath = database.filePath(u"borte.mdb"_qs);
    person.answers(u"Finner ikke databasefilen"_qs);
    recordsets.OpenDatabase();
    EXPECT_TRUE(recordsets.CompactFailed);
    EXPECT_EQ(module.DatabaseConnection, nullptr);
    person.answers(u"Ingen database"_qs);
    recordsets.OpenRecordsets();
    EXPECT_FALSE(recordsets.rsKeyAll.isOpen());
    EXPECT_EQ(displays, 1);
}

struct CompactionTest : RecordsetsTest {
    CompactionTest()
    {
        run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200)"
            " INSERT INTO SMS_Sent (CMGS) SELECT 'UNSENT' FROM n"_qs);
        run(u"DELETE FROM SMS_Sent WHERE ID > 2 AND ID <> 150"_qs);
        run(u"DELETE FROM KEYTable WHERE KeyNavn = 'Hovedport'"_qs);
        database.letGo();
        recordsets.OpenRecordsets();
        recordsets.CompactRequested = true;
    }
    void fails(const QString &words)
    {
        person.answers(words);
        recordsets.OpenDatabase();
        EXPECT_TRUE(recordsets.CompactFailed);
    }
    qsizetype files()
    {
        return QDir(QFileInfo(database.path()).path()).entryList(QDir::Files).size();
    }
    static qint64 sizeOf(const QString &path) { return QFile(path).size(); }
};

TEST_F(CompactionTest, KeepsRowsNumbersPasswordAndBackup)
{
    write(module.BackupDatabasePath, "eldre");
    const qint64 before = sizeOf(module.DatabasePath);
    const auto everybodys = QFile::permissions(module.DatabasePath) | QFile::WriteOther;
    QFile::setPermissions(module.DatabasePath, everybodys);
    recordsets.OpenDatabase();
    EXPECT_EQ(QFile::permissions(module.DatabasePath), everybodys);
    ASSERT_FALSE(recordsets.CompactFailed);
    EXPECT_EQ(sizeOf(module.BackupDatabasePath), before);
    EXPECT_FALSE(QFile::exists(module.TempDatabasePath));

    Connection &connection = *module.DatabaseConnection;
    EXPECT_EQ(connection.single(u"SELECT (SELECT group_concat(ID) FROM SMS_Sent) || '|' || (SELECT "
                                "min(Rad) FROM KEYTable) || '|' || (SELECT count(*) FROM "
                                "sqlite_master WHERE type IN ('view', 'trigger'))"_qs),
              u"1,2,150|2|3"_qs);
    EXPECT_EQ(connection.single(u"PRAGMA user_version"_qs), 1);
    EXPECT_EQ(connection.single(u"PRAGMA integrity_check"_qs), u"ok"_qs);
    connection.run(u"INSERT INTO SMS_Sent (CMGS) VALUES ('UNSENT')"_qs);
    EXPECT_EQ(connection.lastInsertRowId(), 201) << "numbers of deleted rows come back";
}

TEST_F(CompactionTest, FileThatCannotBeHadAloneStaysAsItIs)
{
    const QString lock = module.DatabasePath + u"-lock"_qs;
    recordsets.CompactRequested = false;
    QFile::remove(lock);
    ASSERT_TRUE(QFile::link(database.filePath(u"borte/lock"_qs), lock));
    recordsets.OpenDatabase(); // the file can be used all the same
    EXPECT_FALSE(recordsets.CompactFailed);
    recordsets.CompactRequested = true;
    fails(u"Kan ikke få databasen alene"_qs);
    EXPECT_FALSE(QFile::exists(module.BackupDatabasePath));

    QFile::remove(lock);
    auto other = database.open();
    fails(u"i bruk av et annet program"_qs);
    EXPECT_FALSE(QFile::exists(module.TempDatabasePath));
    other.reset();

    write(module.TempDatabasePath, "igjen"); // of an earlier one
    fails(module.TempDatabasePath);
    EXPECT_EQ(sizeOf(module.TempDatabasePath), 5);
    EXPECT_NO_THROW(database.open());
}

TEST_F(CompactionTest, BrokenFileAndTheEarlierBackupStayAndNoHalfOneIsLeft)
{
    write(module.BackupDatabasePath, "eldre");
    // From the third page on: the list of tables still reads.
    QFile file(module.DatabasePath);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(8192));
    file.write(QByteArray(int(file.size()) - 8192, 'x'));
    file.close();
    fails({});
    EXPECT_EQ(sizeOf(module.BackupDatabasePath), 5);
    EXPECT_EQ(files(), 3) << "database, lock and backup";
}

// The disk takes files up to a size only: the copy ends at its begin or in the middle, or the
// compacted file does.
TEST_F(CompactionTest, CutOffAnywhereLeavesTheDatabaseAndAWholeBackup)
{
    const qint64 whole = sizeOf(module.DatabasePath);
    for (const qint64 room : {qint64(0), whole / 2, whole - 1}) {
        SCOPED_TRACE(room);
        write(module.BackupDatabasePath, "eldre");
        person.answers(u"Kan ikke kopiere"_qs);
        const auto before = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit full{static_cast<rlim_t>(room), limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
        recordsets.OpenDatabase();
        setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, before);
        EXPECT_TRUE(recordsets.CompactFailed);
        EXPECT_EQ(sizeOf(module.BackupDatabasePath), 5);
        EXPECT_EQ(sizeOf(module.DatabasePath), whole);
        EXPECT_EQ(files(), 3) << "database, lock and backup";
    }
}

TEST_F(CompactionTest, FileBehindALinkIsTheOneThatIsCompacted)
{
    const qint64 before = sizeOf(module.DatabasePath);
    module.DatabasePath = database.filePath(u"snarvei.mdb"_qs);
    ASSERT_TRUE(QFile::link(database.path(), module.DatabasePath));
    recordsets.OpenDatabase();
    EXPECT_FALSE(recordsets.CompactFailed);
    EXPECT_LT(sizeOf(database.path()), before);
}

} // namespace
