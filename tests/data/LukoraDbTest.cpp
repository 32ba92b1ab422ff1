#include "data/Connection.h"
#include "data/DatabasePaths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

using testing::HasSubstr;

namespace {

/// The program lukora-db, run in a folder of its own.
class LukoraDbTest : public testing::Test {
protected:
    int run(const QStringList &arguments, const QByteArray &typed = {})
    {
        QProcess program;
        program.setWorkingDirectory(folder.path());
        program.start(QString::fromUtf8(LUKORA_DB_PROGRAM), arguments);
        program.write(typed);
        program.closeWriteChannel();
        EXPECT_TRUE(program.waitForFinished());
        said = (program.readAllStandardOutput() + program.readAllStandardError()).toStdString();
        return program.exitCode();
    }
    QString firstLogin() const
    {
        const auto file = Connection::open(connectionString(folder.filePath(u"ny.mdb"_qs)));
        return file
            ->single(u"SELECT USER_ID || '/' || Password || '/' || SecurityLevel FROM Passwords"_qs)
            .toString();
    }
    QTemporaryDir folder;
    std::string said;
};

const QStringList kCreate = {u"create"_qs,     u"ny.mdb"_qs,     u"--operator"_qs, u"Åse"_qs,
                             u"--password"_qs, u"hemmelig 1"_qs, u"--level"_qs,    u"6"_qs};

TEST_F(LukoraDbTest, MakesAFileThatTheProgramOpens)
{
    EXPECT_EQ(run(kCreate), 0) << said;
    EXPECT_EQ(firstLogin(), u"Åse/hemmelig 1/6");
    const auto file = Connection::open(connectionString(folder.filePath(u"ny.mdb"_qs)));
    EXPECT_EQ(file->single(u"SELECT ModemOwner FROM Modem"_qs).toString(), u"?");
}

TEST_F(LukoraDbTest, AsksForWhatIsNotGiven)
{
    EXPECT_EQ(run({u"create"_qs, u"ny.mdb"_qs, u"--level"_qs, u"4"_qs}, "Ola\npass ord\n"), 0);
    EXPECT_EQ(firstLogin(), u"Ola/pass ord/4");
    EXPECT_THAT(said, HasSubstr("Password: "));
}

TEST_F(LukoraDbTest, NeverOverwritesAFile)
{
    QFile file(folder.filePath(u"ny.mdb"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("viktig") == 6);
    file.close();
    EXPECT_EQ(run(kCreate), 1);
    EXPECT_THAT(said, HasSubstr("exists already"));
    EXPECT_EQ(file.size(), 6);
}

TEST_F(LukoraDbTest, UnwritableFolderIsAFailureInWords)
{
    QStringList arguments = kCreate;
    arguments[1] = u"borte/ny.mdb"_qs;
    EXPECT_EQ(run(arguments), 1);
    EXPECT_THAT(said, HasSubstr("borte/ny.mdb"));
}

struct Wrong {
    const char *name;
    QStringList arguments;
};

class LukoraDbWrongUse : public LukoraDbTest, public testing::WithParamInterface<Wrong> {};

TEST_P(LukoraDbWrongUse, IsToldAndLeavesNoFile)
{
    EXPECT_EQ(run(GetParam().arguments), 2);
    EXPECT_THAT(said, HasSubstr("lukora-db: "));
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::Files));
}

QStringList with(int place, const QString &value)
{
    QStringList arguments = kCreate;
    arguments[place] = value;
    return arguments;
}

INSTANTIATE_TEST_SUITE_P(Arguments, LukoraDbWrongUse,
                         testing::Values(Wrong{"OtherCommand", with(0, u"drop"_qs)},
                                         Wrong{"UnknownOption", with(2, u"--name"_qs)},
                                         Wrong{"EmptyName", with(3, u" "_qs)},
                                         Wrong{"QuoteInName", with(3, u"O'Neil"_qs)},
                                         Wrong{"LevelWord", with(7, u"high"_qs)},
                                         Wrong{"LevelTwoDigits", with(7, u"10"_qs)},
                                         Wrong{"NothingTyped", {u"create"_qs, u"ny.mdb"_qs}}),
                         [](const auto &wrong) { return wrong.param.name; });

} // namespace
