#include "data/DataTest.h"
#include "data/DatabasePaths.h"

#include <QDir>
#include <QProcess>

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
    /// The login and the modem's holder that stand in the new file.
    QString made() const
    {
        return Connection::open(connectionString(folder.filePath(u"ny.mdb"_qs)))
            ->single(u"SELECT USER_ID || '/' || Password || '/' || SecurityLevel || '/' ||"
                     " ModemOwner FROM Passwords, Modem"_qs)
            .toString();
    }
    QTemporaryDir folder;
    std::string said;
};

const QStringList kCreate = {u"create"_qs,     u"ny.mdb"_qs,     u"--operator"_qs, u"Åse"_qs,
                             u"--password"_qs, u"hemmelig 1"_qs, u"--level"_qs,    u"6"_qs};

QStringList with(int place, const QString &value)
{
    QStringList arguments = kCreate;
    arguments[place] = value;
    return arguments;
}

TEST_F(LukoraDbTest, MakesAFileThatTheProgramOpensAndNeverOverwritesOneOrMakesAFolder)
{
    EXPECT_EQ(run(kCreate), 0) << said;
    EXPECT_EQ(made(), u"Åse/hemmelig 1/6/?");
    EXPECT_EQ(run(with(3, u"Ola"_qs)), 1);
    EXPECT_THAT(said, HasSubstr("exists already"));
    EXPECT_EQ(made(), u"Åse/hemmelig 1/6/?");
    EXPECT_EQ(run(with(1, u"borte/ny.mdb"_qs)), 1);
    EXPECT_THAT(said, HasSubstr("borte/ny.mdb"));
}

TEST_F(LukoraDbTest, AsksForWhatIsNotGiven)
{
    EXPECT_EQ(run({u"create"_qs, u"ny.mdb"_qs, u"--level"_qs, u"4"_qs}, "Ola\npass ord\n"), 0);
    EXPECT_EQ(made(), u"Ola/pass ord/4/?");
    EXPECT_THAT(said, HasSubstr("Password: "));
}

TEST_F(LukoraDbTest, WrongUseIsToldAndLeavesNoFile)
{
    for (const QStringList &wrong : {with(0, u"drop"_qs),
                                     with(2, u"--name"_qs),
                                     with(3, u" "_qs),
                                     with(3, u"O'Neil"_qs),
                                     with(7, u"high"_qs),
                                     with(7, u"10"_qs),
                                     {u"create"_qs, u"ny.mdb"_qs}}) {
        EXPECT_EQ(run(wrong), 2) << wrong.join(u' ').toStdString();
        EXPECT_THAT(said, HasSubstr("lukora-db: "));
        EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::Files));
    }
}

} // namespace
