#include "data/Connection.h"

#include "data/Criteria.h"
#include "data/DatabasePaths.h"
#include "data/FileUse.h"
#include "platform/RuntimeFailure.h"
#include "support/TestDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

using testing::HasSubstr;

namespace {

std::string failureOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const RuntimeFailure &failure) {
        return failure.description().toStdString();
    }
    return "no failure";
}

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

class ConnectionTest : public testing::Test {
protected:
    std::string openingOf(const QByteArray &content)
    {
        const QString path = database.filePath(u"annen.mdb"_qs);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        return failureOf([&] {
            Connection::open(connectionString(path))->single(u"SELECT 1 FROM Passwords"_qs);
        });
    }
    TestDatabase database;
};

TEST_F(ConnectionTest, MissingFileIsNamedAndNotMade)
{
    const QString path = database.filePath(u"borte.mdb"_qs);
    EXPECT_THAT(failureOf([&] { Connection::open(connectionString(path)); }),
                HasSubstr("Finner ikke databasefilen"));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_THAT(failureOf([&] { Connection::open(connectionString(database.filePath({}))); }),
                HasSubstr("Finner ikke"));
    EXPECT_THAT(failureOf([] { Connection::open(connectionString({})); }),
                HasSubstr("Finner ikke"));
}

TEST_F(ConnectionTest, ForeignFilesAreRefusedInWords)
{
    EXPECT_THAT(openingOf("Kjære leser, dette er et brev. " + QByteArray(5000, 'x')),
                HasSubstr("ikke en database"));
    EXPECT_THAT(openingOf("SQLite format 3\0" + QByteArray(8192, '\0')),
                HasSubstr("ikke en database"));
    EXPECT_THAT(openingOf({}), HasSubstr("no such table"));
}

TEST_F(ConnectionTest, AnotherPasswordIsRefused)
{
    QString string = connectionString(database.path());
    string.replace(u"kaLmir"_qs, u"KALMIR"_qs);
    EXPECT_THAT(failureOf([&] { Connection::open(string); }), HasSubstr("annet passord"));
    EXPECT_THAT(failureOf([&] { Connection::open(chosenString(database.path())); }),
                HasSubstr("annet passord"));
}

TEST_F(ConnectionTest, FileHeldAloneByAnotherIsRefusedUntilItIsReleased)
{
    auto alone = FileUse::alone(database.path());
    EXPECT_THAT(failureOf([&] { database.open(); }), HasSubstr("i bruk av et annet program"));
    alone.reset();
    EXPECT_NO_THROW(database.open());
}

TEST_F(ConnectionTest, LockedFileIsNamedSo)
{
    const auto holder = database.open();
    const auto impatient = database.open();
    impatient->run(u"PRAGMA busy_timeout = 0"_qs);
    holder->run(u"BEGIN EXCLUSIVE"_qs);
    EXPECT_THAT(failureOf([&] { impatient->single(u"SELECT count(*) FROM Modem"_qs); }),
                HasSubstr("låst av et annet program"));
}

TEST_F(ConnectionTest, FailedWorkLeavesNothingBehind)
{
    Connection &connection = database.look();
    EXPECT_THROW(connection.transaction([&] {
        connection.run(u"DELETE FROM Passwords"_qs);
        connection.transaction([&] { connection.run(u"DELETE FROM TBLLanguage"_qs); });
        throw RuntimeFailure(u"halvveis"_qs);
    }),
                 RuntimeFailure);
    EXPECT_EQ(database.single(u"SELECT count(*) FROM Passwords"_qs), u"1");
    EXPECT_NE(database.single(u"SELECT count(*) FROM TBLLanguage"_qs), u"0");
    connection.transaction([&] { connection.run(u"DELETE FROM Passwords"_qs); });
    EXPECT_EQ(database.open()->single(u"SELECT count(*) FROM Passwords"_qs).toInt(), 0);
}

TEST_F(ConnectionTest, ReaderMayRunTheSameStatementAgain)
{
    const QString sql = u"SELECT ID FROM TBLLanguage WHERE ID <= 3"_qs;
    int inner = 0;
    database.look().run(sql, {}, [&](const QVariantList &) {
        database.look().run(sql, {}, [&](const QVariantList &) { ++inner; });
    });
    EXPECT_EQ(inner, 9);
}

TEST_F(ConnectionTest, ValuesComeBackAsTheyWere)
{
    const QVariantList values = {u"Æ 'x'\u20AC"_qs, 5'000'000'000LL, 0.5, {}, QString(), true};
    QVariantList read;
    database.look().run(u"SELECT ?, ?, ?, ?, ?, ?"_qs, values,
                        [&](const QVariantList &row) { read = row; });
    const QVariantList expected = {u"Æ 'x'\u20AC"_qs, 5'000'000'000LL, 0.5, {}, QString(), -1LL};
    EXPECT_EQ(read, expected);
    EXPECT_THROW(database.look().run(u"SELECT ?"_qs, {1, 2}), RuntimeFailure);
}

TEST_F(ConnectionTest, ClosedConnectionFailsForAllWhoHoldIt)
{
    const auto connection = database.open();
    connection->close();
    EXPECT_THROW(connection->run(u"SELECT 1"_qs), RuntimeFailure);
    EXPECT_THROW(connection->transaction([] {}), RuntimeFailure);
    EXPECT_NO_THROW(FileUse::alone(database.path()));
}

TEST_F(ConnectionTest, OtherProgramReadsTheFileWithThePasswordOnly)
{
    database.add(u"Katalog"_qs, u"Bruker,Etternavn"_qs, {u"+4790000001 "_qs, u"ÆØÅ  "_qs});
    database.add(u"Katalog"_qs, u"Bruker,Etternavn"_qs, {u"ærø "_qs, u"æøå"_qs});
    const QString sql = u"SELECT USER_ID FROM Passwords; PRAGMA integrity_check;"_qs;
    EXPECT_EQ(sqlcipherSays(database.path(), sql, u"kaLmir"_qs), u"Hovedoperatør\nok\n");
    EXPECT_FALSE(sqlcipherSays(database.path(), sql, u"feil"_qs).contains(u"Hoved"));
}

TEST_F(ConnectionTest, NothingReadableStandsInTheFile)
{
    QFile file(database.path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    ASSERT_GT(content.size(), 10'000);
    for (const char *word : {"SQLite", "CREATE", "KEYTable", "Hovedoperat", "hemmelig", "kaLmir"}) {
        EXPECT_FALSE(content.contains(word)) << word;
    }
}

struct Lookup {
    const char *name;
    QString sql;
    const char *index;
};

class Lookups : public ConnectionTest, public testing::WithParamInterface<Lookup> {};

TEST_P(Lookups, AreAnsweredByAnIndex)
{
    QString plan;
    QString sql = GetParam().sql;
    sql.replace(u"?"_qs, u"'x'"_qs);
    database.look().run(u"EXPLAIN QUERY PLAN "_qs + sql, {},
                        [&](const QVariantList &row) { plan += row[3].toString() + u'\n'; });
    EXPECT_THAT(plan.toStdString(), HasSubstr(GetParam().index));
    EXPECT_FALSE(plan.contains(u"SCAN")) << plan.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Criteria, Lookups,
    testing::Values(
        Lookup{"OutboxFilter",
               u"SELECT ID FROM SMS_Sent WHERE %1 OR %1 ORDER BY ID LIMIT 1"_qs.arg(
                   equals(u"CMGS"_qs)),
               "INDEX SMS_Sent_CMGS"},
        Lookup{"ReportReference",
               u"SELECT ID FROM SMS_Sent WHERE %1 AND %2 ORDER BY ID LIMIT 1"_qs.arg(
                   differs(u"CMGS"_qs), equals(u"cmgs"_qs)),
               "INDEX SMS_Sent_CMGS"},
        Lookup{"UserForward",
               u"SELECT 1 FROM TBLbrukere WHERE rowid >= 7 AND %1 ORDER BY rowid LIMIT 1"_qs.arg(
                   equals(u"[KeyBruker]"_qs)),
               "INDEX TBLbrukere_KeyBruker"},
        Lookup{"CatalogueShortNumber",
               u"SELECT 1 FROM Katalog WHERE %1 ORDER BY rowid LIMIT 1"_qs.arg(
                   equals(u"Brukerkort"_qs)),
               "INDEX Katalog_BrukerKort"},
        Lookup{"LogStamp",
               u"SELECT 1 FROM LOGGData WHERE %1 AND %2 ORDER BY rowid LIMIT 1"_qs.arg(
                   equals(u"Dato"_qs), equals(u"KeyUser"_qs)),
               "INDEX LOGGData_Dato"},
        Lookup{"GridOfADoor",
               u"SELECT Bruker FROM brukere WHERE %1 AND Rad > 7 ORDER BY Rad LIMIT 1"_qs.arg(
                   equals(u"KeyNummer"_qs)),
               "INDEX TBLbrukere_KeyNummer"}),
    [](const auto &lookup) { return lookup.param.name; });

struct Paths {
    const char *name;
    QString path;
    QString temp;
    QString backup;
};

class DatabasePaths : public testing::TestWithParam<Paths> {};

TEST_P(DatabasePaths, AreCutAndReadBack)
{
    const QString path = GetParam().path;
    EXPECT_EQ(tempDatabasePath(path), GetParam().temp);
    EXPECT_EQ(backupDatabasePath(path), GetParam().backup);
    for (const QString &string : {connectionString(path), compactionString(path)}) {
        EXPECT_EQ(connectionParts(string).path, path);
        EXPECT_EQ(connectionParts(string).password, u"kaLmir");
    }
    EXPECT_EQ(connectionParts(chosenString(path)).path, path);
}

INSTANTIATE_TEST_SUITE_P(Names, DatabasePaths,
                         testing::Values(Paths{"Plain", u"Dorvik02.mdb"_qs, u"Dorvik02TMP.mdb"_qs,
                                               u"Dorvik02BAK.mdb"_qs},
                                         Paths{"NoEnding", u"/data/hytte"_qs, u"/data/hTMP.mdb"_qs,
                                               u"/data/hBAK.mdb"_qs},
                                         Paths{"Short", u"db"_qs, u"TMP.mdb"_qs, u"BAK.mdb"_qs},
                                         Paths{"Semicolon", u"/a;b/x;Data Source=y.mdb"_qs,
                                               u"/a;b/x;Data Source=yTMP.mdb"_qs,
                                               u"/a;b/x;Data Source=yBAK.mdb"_qs}),
                         [](const auto &paths) { return paths.param.name; });

} // namespace
