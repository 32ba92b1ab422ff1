#include "data/CreateDatabase.h"
#include "data/Criteria.h"
#include "data/DataTest.h"
#include "data/DatabasePaths.h"
#include "data/FileUse.h"

#include <QProcess>

#include <sys/stat.h>

namespace {

using testing::AllOf;
using testing::Not;

/// What the sqlcipher program says to a file, its own password given or not.
QString sqlcipherSays(const QString &path, const QString &sql, const QString &password)
{
    QProcess program;
    program.start(u"sqlcipher"_qs, {u"-batch"_qs, path});
    program.write(u"PRAGMA key='%1';\n%2\n"_qs.arg(password, sql).toUtf8());
    program.closeWriteChannel();
    EXPECT_TRUE(program.waitForFinished());
    return QString::fromUtf8(program.readAllStandardOutput() + program.readAllStandardError());
}

struct ConnectionTest : DataTest {
    /// How the engine would go about "SELECT 1 FROM" this.
    std::string plan(QString sql)
    {
        sql.replace(u"?"_qs, u"'x'"_qs);
        return database.rows(u"EXPLAIN QUERY PLAN SELECT 1 FROM "_qs + sql)
            .join(u'|')
            .toStdString();
    }
};

TEST_F(ConnectionTest, BadFilesAndPasswordsAreRefusedInWords)
{
    const auto named = [&](const QString &name) { return database.filePath(name); };
    write(named(u"brev"_qs), "Kjære leser" + QByteArray(5000, 'x'));
    write(named(u"hode"_qs), "SQLite format 3" + QByteArray(8192, '\0'));
    write(named(u"tom"_qs), {});
    QString otherPassword = connectionString(database.path());
    otherPassword.replace(u"kaLmir"_qs, u"KALMIR"_qs);
    for (const auto &[string, words] :
         {std::pair(connectionString(named(u"borte"_qs)), "Finner ikke databasefilen"),
          {connectionString({}), "Finner ikke"},
          {connectionString(named({})), "Finner ikke"},
          {connectionString(named(u"brev"_qs)), "ikke en database"},
          {connectionString(named(u"hode"_qs)), "ikke en database"},
          {connectionString(named(u"tom"_qs)), "no such table"},
          {otherPassword, "annet passord"},
          {chosenString(database.path()), "annet passord"}}) {
        EXPECT_THAT(failureOf([&, given = string] {
                        Connection::open(given)->single(u"SELECT 1 FROM Passwords"_qs);
                    }),
                    HasSubstr(words));
    }
    EXPECT_FALSE(QFile::exists(named(u"borte"_qs)));
}

// Of a full disk the engine ends the transaction by itself, and what follows would be written at
// once; a folder that takes no journal refuses each write.
TEST_F(ConnectionTest, FailedWorkLeavesNothingBehindThoughItsStepIsCaught)
{
    const QString bigRow = u"INSERT INTO Katalog (Gate) VALUES (hex(zeroblob(100000)))"_qs;
    const std::pair<QString, QString> kFailures[] = {
        {u"PRAGMA max_page_count = 1"_qs, bigRow}, // no more than there are
        {u"PRAGMA query_only = ON"_qs, u"DELETE FROM Modem"_qs},
        {{}, {}}};
    for (const auto &[sets, fails] : kFailures) {
        SCOPED_TRACE(sets.toStdString());
        const auto other = database.open();
        EXPECT_THROW(other->transaction([&, change = sets, step = fails] {
            other->run(u"DELETE FROM Passwords"_qs);
            if (step.isEmpty()) {
                other->transaction([&] { other->run(u"DELETE FROM TBLLanguage"_qs); });
                throw RuntimeFailure(u"halvveis"_qs);
            }
            other->run(change);
            EXPECT_THROW(other->run(step), RuntimeFailure);
            EXPECT_THROW(other->transaction([&] { other->run(u"DELETE FROM TBLLanguage"_qs); }),
                         RuntimeFailure);
        }),
                     RuntimeFailure);
        EXPECT_EQ(database.single(u"SELECT count(*) FROM Passwords"_qs), u"1");
        EXPECT_NE(database.single(u"SELECT count(*) FROM TBLLanguage"_qs), u"0");
        other->run(u"PRAGMA query_only = OFF"_qs);
        other->run(u"DELETE FROM Modem"_qs); // outside it each statement stands for itself
        EXPECT_EQ(database.single(u"SELECT count(*) FROM Modem"_qs), u"0");
    }
}

TEST_F(ConnectionTest, ValuesComeBackAsTheyWereAndAReaderMayRunItsStatementAgain)
{
    const QString sql = u"SELECT ID FROM TBLLanguage WHERE ID <= 3"_qs;
    int inner = 0;
    database.look().run(sql, {}, [&](const QVariantList &) {
        database.look().run(sql, {}, [&](const QVariantList &) { ++inner; });
    });
    EXPECT_EQ(inner, 9);
    const QVariantList values = {u"Æ 'x'\u20AC"_qs, 5'000'000'000LL, 0.5, {}, QString(), true};
    QVariantList read;
    database.look().run(u"SELECT ?, ?, ?, ?, ?, ?"_qs, values,
                        [&](const QVariantList &row) { read = row; });
    const QVariantList expected = {u"Æ 'x'\u20AC"_qs, 5'000'000'000LL, 0.5, {}, QString(), -1LL};
    EXPECT_EQ(read, expected);
    EXPECT_EQ(read.value(2).typeId(), QMetaType::Double) << "a text of it is equal";
    EXPECT_THROW(database.look().run(u"SELECT ?"_qs, {1, 2}), RuntimeFailure);
}

TEST_F(ConnectionTest, ClosedOneFailsForAllAndAnotherStandsByItselfAndKeepsTheFile)
{
    const auto first = database.open();
    const auto second = first->another();
    first->close();
    EXPECT_THAT(failureOf([&] { first->another(); }), HasSubstr("er lukket"));
    EXPECT_THROW(first->run(u"SELECT 1"_qs), RuntimeFailure);
    EXPECT_THROW(first->transaction([] {}), RuntimeFailure);
    EXPECT_EQ(second->single(u"SELECT USER_ID FROM Passwords"_qs), u"Hovedoperatør"_qs);
    EXPECT_THROW(FileUse::alone(database.path()), RuntimeFailure);
    second->close();
    auto alone = FileUse::alone(database.path());
    EXPECT_THAT(failureOf([&] { database.open(); }), HasSubstr("i bruk av et annet program"));
    alone.reset();
    EXPECT_NO_THROW(database.open());
}

// By whatever name, and whatever mask the first one's account has.
TEST_F(ConnectionTest, EveryoneWhoUsesTheFileIsSeen)
{
    const QString lock = database.path() + u"-lock"_qs;
    QFile::remove(lock);
    const mode_t before = umask(077);
    FileUse::shared(database.path());
    umask(before);
    EXPECT_TRUE(QFile::permissions(lock) & QFile::WriteOther);
    const QString link = database.filePath(u"snarvei.mdb"_qs);
    ASSERT_TRUE(QFile::link(database.path(), link));
    const auto other = Connection::open(connectionString(link));
    EXPECT_THROW(FileUse::alone(database.path()), RuntimeFailure);
}

TEST_F(ConnectionTest, AnotherOneTakesTheFileThatStandsThereNow)
{
    const auto first = database.open();
    ASSERT_TRUE(QFile::remove(database.path()));
    EXPECT_THAT(failureOf([&] { first->another(); }), HasSubstr("Finner ikke databasefilen"));
    write(database.path(), QByteArray(2048, 'x'));
    EXPECT_THAT(failureOf([&] { first->another(); }), HasSubstr("ikke en database"));
    QFile::remove(database.path());
    createDatabase(database.path(), {u"Ny"_qs, {}, u"1"_qs});
    EXPECT_EQ(first->another()->single(u"SELECT USER_ID FROM Passwords"_qs), u"Ny"_qs);
}

TEST_F(ConnectionTest, OtherProgramReadsTheFileWithThePasswordOnlyAndNoWordStandsInIt)
{
    database.look().transaction([&] {
        database.look().another(); // takes no lock away
        EXPECT_TRUE(sqlcipherSays(database.path(), u"DELETE FROM Passwords;"_qs, u"kaLmir"_qs)
                        .contains(u"locked"));
    });
    addPerson(u"ærø "_qs, u"æøå  "_qs);
    const QString sql = u"SELECT USER_ID FROM Passwords; PRAGMA integrity_check;"_qs;
    EXPECT_EQ(sqlcipherSays(database.path(), sql, u"kaLmir"_qs), u"Hovedoperatør\nok\n");
    EXPECT_FALSE(sqlcipherSays(database.path(), sql, u"feil"_qs).contains(u"Hoved"));
    QFile file(database.path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    ASSERT_GT(content.size(), 10'000);
    for (const char *word : {"SQLite", "CREATE", "KEYTable", "Hovedoperat", "hemmelig", "kaLmir"}) {
        EXPECT_FALSE(content.contains(word)) << word;
    }
}

TEST_F(ConnectionTest, LookupsAreAnsweredByAnIndex)
{
    const QString state = equals(u"CMGS"_qs);
    for (const auto &[sql, index] :
         {std::pair(u"SMS_Sent WHERE %1 OR %1 ORDER BY ID"_qs.arg(state), "SMS_Sent_CMGS"),
          {u"SMS_Sent WHERE %1 AND %2 ORDER BY ID"_qs.arg(differs(u"CMGS"_qs), state),
           "SMS_Sent_CMGS"},
          {u"TBLbrukere WHERE rowid >= 7 AND %1 ORDER BY rowid"_qs.arg(equals(u"[KeyBruker]"_qs)),
           "TBLbrukere_KeyBruker"},
          {u"Katalog WHERE %1 ORDER BY rowid"_qs.arg(equals(u"Brukerkort"_qs)),
           "Katalog_BrukerKort"},
          {u"LOGGData WHERE %1 ORDER BY rowid"_qs.arg(equals(u"Dato"_qs)), "LOGGData_Dato"},
          {u"brukere WHERE %1 AND Rad > 7 ORDER BY Rad"_qs.arg(equals(u"KeyNummer"_qs)),
           "TBLbrukere_KeyNummer"}}) {
        EXPECT_THAT(plan(sql + u" LIMIT 1"_qs), AllOf(HasSubstr(index), Not(HasSubstr("SCAN"))));
    }
    for (const QString &number : u"Bruker,BrukerKort,CMGS,Dato,FraNummer,FraNummerKort,KeyBruker,"
                                 "KeyNummer,KeyUser,TilNummer,TilNummerKort"_qs.split(u',')) {
        EXPECT_EQ(sortedForm(number), comparedForm(number)) << "the form that an index has";
    }
    for (const QString &way : {u""_qs, u" DESC"_qs}) { // the log of a door is sorted by its index
        EXPECT_THAT(plan(u"LOGGData WHERE %1 ORDER BY %2%3, [Rad]%3"_qs.arg(
                        equals(u"KeyNummer"_qs), comparedForm(u"Dato"_qs), way)),
                    AllOf(HasSubstr("LOGGData_KeyNummer"), Not(HasSubstr("TEMP B-TREE"))));
    }
}

TEST(DatabasePaths, AreCutAndReadBack)
{
    for (const auto &[path, stem] :
         {std::pair(u"Dorvik02.mdb"_qs, u"Dorvik02"_qs),
          {u"/data/hytte"_qs, u"/data/h"_qs},
          {u"db"_qs, QString()},
          {u"/a;b/x;Data Source=y.mdb"_qs, u"/a;b/x;Data Source=y"_qs}}) {
        EXPECT_EQ(tempDatabasePath(path), stem + u"TMP.mdb"_qs);
        EXPECT_EQ(backupDatabasePath(path), stem + u"BAK.mdb"_qs);
        for (const QString &string :
             {connectionString(path), compactionString(path), chosenString(path)}) {
            EXPECT_EQ(connectionParts(string).path, path);
        }
        EXPECT_EQ(connectionParts(compactionString(path)).password, u"kaLmir");
    }
}

} // namespace
