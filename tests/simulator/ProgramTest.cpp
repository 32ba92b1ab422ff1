#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <csignal>

namespace {

constexpr int kPatience = 60'000; // milliseconds; a machine under load is slow, not wrong

/// The program as a user starts it: the one thing here that runs on the machine's time. The
/// arguments stand between blanks; "LINK" among them is the link of the pseudo-terminal.
class Simulator : public QProcess {
public:
    explicit Simulator(const QString &arguments)
    {
        setProcessChannelMode(MergedChannels);
        QStringList list = arguments.split(u' ', Qt::SkipEmptyParts);
        start(QStringLiteral(LUKORA_SIMULATOR), list.replaceInStrings(u"LINK"_qs, link));
        ready = waitForLine("ready ");
    }
    ~Simulator() override
    {
        kill();
        waitForFinished(kPatience);
    }
    void type(const QByteArray &line)
    {
        write(line + '\n');
        waitForBytesWritten(kPatience);
    }
    /// The next line that begins so; empty when it never comes.
    QByteArray waitForLine(const QByteArray &begin)
    {
        QByteArray line;
        while (!line.startsWith(begin) && (canReadLine() || waitForReadyRead(kPatience))) {
            line = readLine().trimmed();
        }
        return line.startsWith(begin) ? line : QByteArray();
    }
    /// The exit status, -1 after a crash.
    int waitForEnd()
    {
        const bool ended = state() == NotRunning || waitForFinished(kPatience);
        return ended && exitStatus() == NormalExit ? exitCode() : -1;
    }
    int stop(int signal)
    {
        ::kill(static_cast<pid_t>(processId()), signal);
        return waitForEnd();
    }

    const QTemporaryDir folder;
    const QString link = folder.filePath(u"modem"_qs);
    QByteArray ready;
};

TEST(Gammu, TakesTheModemForARealOneUntilItIsTerminated)
{
    ASSERT_FALSE(QStandardPaths::findExecutable(u"gammu"_qs).isEmpty()) << "gammu is not installed";
    Simulator simulator(u"--pty LINK --door +4790000001:Hovedport:no --delay 1"_qs);
    QTemporaryFile settings;
    ASSERT_TRUE(settings.open());
    settings.write("[gammu]\nconnection = at\ndevice = " + simulator.link.toUtf8() + '\n');
    settings.close();
    QProcess gammu;
    gammu.setProcessChannelMode(QProcess::MergedChannels);
    gammu.start(u"gammu"_qs, {u"-c"_qs, settings.fileName(), u"batch"_qs});

    simulator.type("sms +4791111111 Hei på deg");
    ASSERT_FALSE(simulator.waitForLine("sms +4791111111 ").isEmpty());
    gammu.write("identify\nsendsms TEXT +4790000001 -text \"I 92222222>26120100<26120324\"\n");
    ASSERT_TRUE(gammu.waitForBytesWritten(kPatience));
    EXPECT_EQ(simulator.waitForLine("sms +4799000000 "),
              "sms +4799000000 -> +4790000001: I 92222222>26120100<26120324");
    ASSERT_FALSE(simulator.waitForLine("sms +4790000001 ").isEmpty());
    gammu.write("getallsms\ngetsms 1 1\ndeletesms 1 1\ngetallsms\n");
    gammu.closeWriteChannel();

    // It leaves with a failure at the first command that fails.
    EXPECT_TRUE(gammu.waitForFinished(kPatience) && gammu.exitCode() == 0);
    const QString said = QString::fromUtf8(gammu.readAll());
    const QStringList answers = said.split(u"Executing batch"_qs);
    ASSERT_EQ(answers.size(), 7) << qPrintable(said);
    const std::pair<int, QString> parts[] = {{1, u"Manufacturer         : Lukora"_qs},
                                             {2, u"OK, message reference=0"_qs},
                                             {3, u"Remote number        : \"+4791111111\""_qs},
                                             {3, u"Hei på deg\n"_qs},
                                             {3, u"92222222 er lagt til\n"_qs},
                                             {3, u"2 SMS parts in 2 SMS sequences"_qs},
                                             {4, u"Hei på deg\n"_qs},
                                             {6, u"92222222 er lagt til\n"_qs},
                                             {6, u"1 SMS parts in 1 SMS sequences"_qs}};
    for (const auto &[command, part] : parts) {
        EXPECT_TRUE(answers[command].contains(part)) << qPrintable(part + answers[command]);
    }
    EXPECT_TRUE(QFileInfo(simulator.link).isSymLink());
    EXPECT_EQ(simulator.stop(SIGTERM), 0);
    EXPECT_FALSE(QFileInfo(simulator.link).isSymLink());
}

/// A program at the far end of the TCP port.
struct Client : QTcpSocket {
    explicit Client(const Simulator &simulator)
    {
        connectToHost(u"127.0.0.1"_qs, simulator.ready.mid(10).toUShort());
        EXPECT_TRUE(waitForConnected(kPatience));
    }
    /// What comes until this does.
    QByteArray readUntil(const QByteArray &end)
    {
        QByteArray heard;
        while (!heard.contains(end) && waitForReadyRead(kPatience)) {
            heard += readAll();
        }
        return heard;
    }
    bool isDropped() { return state() == UnconnectedState || waitForDisconnected(kPatience); }
};

TEST(Program, GivesItsTcpLineToTheLastClientAndRefusesWhatItCannotBe)
{
    Simulator simulator(u"--tcp 0 --fault nosm"_qs);
    Client first(simulator);
    first.write("ATE0\rAT+CMGS=1\rhalf a text");
    EXPECT_TRUE(first.readUntil("> ").contains("> "));
    Client second(simulator);
    EXPECT_TRUE(first.isDropped());
    second.write("A\xff\xfd\x01T\r");
    EXPECT_EQ(second.readUntil("OK\r\n"), "\xff\xfc\x01\r\nOK\r\n") << "no telnet option";

    simulator.type("fault drop 1\nwhat");
    ASSERT_FALSE(simulator.waitForLine("Unknown command what").isEmpty());
    simulator.closeWriteChannel(); // it lives on without an input
    second.write("AT+CMGS=1\r");
    EXPECT_EQ(second.readUntil("> "), "\r\n> ");
    EXPECT_TRUE(second.isDropped());
    Client third(simulator);
    third.write("AT\r");
    EXPECT_EQ(third.readUntil("OK\r\n"), "\r\nOK\r\n");
    third.write("AT+CPMS=\"SM\"\r");
    EXPECT_TRUE(third.readUntil("303\r\n").endsWith("+CMS ERROR: 303\r\n"));
    EXPECT_EQ(simulator.stop(SIGTERM), 0);

    QTemporaryFile file; // which is no link, and stays
    ASSERT_TRUE(file.open());
    const QString door = u"--tcp 0 --door +4790000002:Port"_qs;
    for (const QString &refused :
         {u"--tcp x"_qs, u"--tcp 0 --pty LINK"_qs, u"--tcp 0 --delay -1"_qs,
          u"--pty "_qs + file.fileName(), door, door + u":fi"_qs, door + u":no:long"_qs,
          door + u":no --door +4790000002:Twice:no"_qs, u"--tcp 0 --user +4790000009:91234567"_qs,
          door + u":no --administrator +4790000002:"_qs}) {
        Simulator other(refused);
        EXPECT_EQ(other.waitForEnd(), 1) << qPrintable(refused);
    }
    EXPECT_TRUE(file.exists());
}

} // namespace
