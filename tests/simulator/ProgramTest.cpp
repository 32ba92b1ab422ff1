#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int kPatience = 60'000; // milliseconds; a machine under load is slow, not wrong

/// The program as a user starts it, which is the one thing here that runs on the machine's time.
class RunningSimulator {
public:
    explicit RunningSimulator(const QStringList &arguments)
    {
        process_.setProcessChannelMode(QProcess::MergedChannels);
        process_.start(QStringLiteral(LUKORA_SIMULATOR), arguments);
        ready_ = waitForLine("ready ");
    }
    ~RunningSimulator()
    {
        process_.kill();
        process_.waitForFinished(kPatience);
    }

    /// The line that it got ready with; empty when it never did.
    QByteArray ready() const { return ready_; }
    void type(const QByteArray &line)
    {
        process_.write(line + '\n');
        process_.waitForBytesWritten(kPatience);
    }
    void endInput() { process_.closeWriteChannel(); }
    /// The next line that begins so.
    QByteArray waitForLine(const QByteArray &start)
    {
        while (process_.canReadLine() || process_.waitForReadyRead(kPatience)) {
            while (process_.canReadLine()) {
                const QByteArray line = process_.readLine().trimmed();
                if (line.startsWith(start)) {
                    return line;
                }
            }
        }
        return {};
    }
    /// The exit status, -1 after a crash.
    int stop(int signal)
    {
        ::kill(static_cast<pid_t>(process_.processId()), signal);
        return waitForEnd();
    }
    int waitForEnd()
    {
        const bool ended =
            process_.state() == QProcess::NotRunning || process_.waitForFinished(kPatience);
        return ended && process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
    }

private:
    QProcess process_;
    QByteArray ready_;
};

class Gammu : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_FALSE(QStandardPaths::findExecutable(QStringLiteral("gammu")).isEmpty())
            << "gammu is not installed";
        QFile configuration(configurationPath());
        ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
        configuration.write("[gammu]\nconnection = at\ndevice = " + QFile::encodeName(link()) +
                            "\n");
    }
    QString link() const { return folder_.filePath(QStringLiteral("modem")); }

    /// What gammu printed; a failure of gammu fails the test.
    QByteArray gammu(const QStringList &arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral("gammu"),
                      QStringList{QStringLiteral("-c"), configurationPath()} + arguments);
        process.closeWriteChannel();
        const bool ended = process.waitForFinished(kPatience);
        const QByteArray output = process.readAll();
        EXPECT_TRUE(ended && process.exitCode() == 0) << output.constData();
        return output;
    }

private:
    QString configurationPath() const { return folder_.filePath(QStringLiteral("gammurc")); }

    QTemporaryDir folder_;
};

TEST_F(Gammu, TakesTheModemForARealOne)
{
    RunningSimulator simulator({QStringLiteral("--pty"), link(), QStringLiteral("--door"),
                                QStringLiteral("+4790000001:Hovedport:no"),
                                QStringLiteral("--delay"), QStringLiteral("1")});
    ASSERT_EQ(simulator.ready(), "ready pty " + QFile::encodeName(link()));
    simulator.type("sms +4791111111 Hei på deg");
    ASSERT_FALSE(simulator.waitForLine("sms +4791111111 ").isEmpty());

    const QByteArray identity = gammu({QStringLiteral("identify")});
    EXPECT_TRUE(identity.contains("Manufacturer         : Lukora")) << identity.constData();

    gammu({QStringLiteral("sendsms"), QStringLiteral("TEXT"), QStringLiteral("+4790000001"),
           QStringLiteral("-text"), QStringLiteral("I 92222222>26120100<26120324")});
    EXPECT_EQ(simulator.waitForLine("sms +4799000000 "),
              "sms +4799000000 -> +4790000001: I 92222222>26120100<26120324");
    ASSERT_FALSE(simulator.waitForLine("sms +4790000001 ").isEmpty());

    const QByteArray all = gammu({QStringLiteral("getallsms")});
    EXPECT_TRUE(all.contains("Remote number        : \"+4791111111\"")) << all.constData();
    EXPECT_TRUE(all.contains("Hei på deg\n")) << all.constData();
    EXPECT_TRUE(all.contains("92222222 er lagt til\n")) << all.constData();
    EXPECT_TRUE(all.contains("2 SMS parts in 2 SMS sequences")) << all.constData();

    const QStringList first{QStringLiteral("1"), QStringLiteral("1")};
    EXPECT_TRUE(gammu(QStringList(QStringLiteral("getsms")) + first).contains("Hei på deg\n"));
    gammu(QStringList(QStringLiteral("deletesms")) + first);
    const QByteArray left = gammu({QStringLiteral("getallsms")});
    EXPECT_FALSE(left.contains("Hei på deg")) << left.constData();
    EXPECT_TRUE(left.contains("1 SMS parts in 1 SMS sequences")) << left.constData();
}

TEST(Program, RemovesItsLinkWhenItIsTerminated)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        const QTemporaryDir folder;
        const QString link = folder.filePath(QStringLiteral("modem"));
        RunningSimulator simulator({QStringLiteral("--pty"), link});
        ASSERT_TRUE(QFileInfo(link).isSymLink());
        EXPECT_EQ(simulator.stop(signal), 0);
        EXPECT_FALSE(QFileInfo(link).isSymLink());
    }
}

TEST(Program, LeavesAFileThatIsNoLink)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("modem")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    RunningSimulator simulator({QStringLiteral("--pty"), file.fileName()});
    EXPECT_EQ(simulator.ready(), QByteArray());
    EXPECT_EQ(simulator.waitForEnd(), 1);
    EXPECT_TRUE(file.exists());
}

TEST(Program, LivesOnWithoutAnInputAndLeavesOnQuit)
{
    RunningSimulator deaf({QStringLiteral("--tcp"), QStringLiteral("0")});
    deaf.endInput();
    QTcpSocket client;
    client.connectToHost(QStringLiteral("127.0.0.1"), deaf.ready().mid(10).toUShort());
    ASSERT_TRUE(client.waitForConnected(kPatience));
    client.write("AT\r");
    ASSERT_TRUE(client.waitForReadyRead(kPatience));
    EXPECT_EQ(deaf.stop(SIGTERM), 0);

    RunningSimulator told({QStringLiteral("--tcp"), QStringLiteral("0")});
    told.type("quit");
    EXPECT_EQ(told.waitForEnd(), 0);
}

/// What the far end says until this comes.
QByteArray readUntil(QTcpSocket &client, const QByteArray &end)
{
    QByteArray read;
    while (!read.contains(end) && client.waitForReadyRead(kPatience)) {
        read += client.readAll();
    }
    return read;
}

TEST(Program, GivesTheLineToTheLastClientAndRefusesTelnetOptions)
{
    RunningSimulator simulator({QStringLiteral("--tcp"), QStringLiteral("0")});
    const auto port = simulator.ready().mid(10).toUShort();
    QTcpSocket first;
    first.connectToHost(QStringLiteral("127.0.0.1"), port);
    ASSERT_TRUE(first.waitForConnected(kPatience));
    first.write("AT+CMGS=+4790000001\rhalf a text");
    ASSERT_TRUE(readUntil(first, "> ").contains("> "));

    QTcpSocket second;
    second.connectToHost(QStringLiteral("127.0.0.1"), port);
    ASSERT_TRUE(second.waitForConnected(kPatience));
    ASSERT_TRUE(first.state() == QAbstractSocket::UnconnectedState ||
                first.waitForDisconnected(kPatience));
    second.write("A\xff\xfd\x01T\r");
    const QByteArray said = readUntil(second, "OK\r\n");
    EXPECT_TRUE(said.contains("\xff\xfc\x01")) << said.toHex().constData();
    EXPECT_TRUE(said.endsWith("\r\n\r\nOK\r\n") || said.endsWith("AT\r\r\nOK\r\n"));
}

TEST(Program, DropsTheLineAtThePromptAndTakesTheNextClient)
{
    RunningSimulator simulator({QStringLiteral("--tcp"), QStringLiteral("0")});
    const auto port = simulator.ready().mid(10).toUShort();
    simulator.type("fault drop 1");
    simulator.type("what");
    ASSERT_FALSE(simulator.waitForLine("Unknown command what").isEmpty());
    QTcpSocket client;
    client.connectToHost(QStringLiteral("127.0.0.1"), port);
    ASSERT_TRUE(client.waitForConnected(kPatience));
    client.write("ATE0\rAT+CMGS=+4790000001\r");
    EXPECT_TRUE(readUntil(client, "> ").endsWith("> "));
    EXPECT_TRUE(client.state() == QAbstractSocket::UnconnectedState ||
                client.waitForDisconnected(kPatience));
    client.connectToHost(QStringLiteral("127.0.0.1"), port);
    ASSERT_TRUE(client.waitForConnected(kPatience));
    client.write("AT\r");
    EXPECT_EQ(readUntil(client, "OK\r\n"), "\r\nOK\r\n");
}

/// A program's end of the pseudo-terminal.
class Terminal {
public:
    explicit Terminal(const QString &link)
        : file_(open(QFile::encodeName(link).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
    }
    ~Terminal() { close(file_); }
    bool write(const QByteArray &bytes)
    {
        return ::write(file_, bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size();
    }
    /// What comes until this does, or until the line is gone.
    QByteArray readUntil(const QByteArray &end)
    {
        QByteArray heard;
        pollfd waiting{file_, POLLIN, 0};
        while (!heard.contains(end) && poll(&waiting, 1, kPatience) > 0) {
            std::array<char, 256> bytes;
            const ssize_t count = read(file_, bytes.data(), bytes.size());
            if (count <= 0) {
                isGone = true;
                break;
            }
            heard.append(bytes.data(), count);
        }
        return heard;
    }
    bool isGone = false;

private:
    int file_;
};

TEST(Program, DropsATerminalAndMakesANewOne)
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("modem"));
    RunningSimulator simulator({QStringLiteral("--pty"), link});
    simulator.type("fault drop 1");
    simulator.type("what");
    ASSERT_FALSE(simulator.waitForLine("Unknown command what").isEmpty());
    Terminal dropped(link);
    ASSERT_TRUE(dropped.write("AT+CMGS=+4790000001\r"));
    dropped.readUntil("never said");
    EXPECT_TRUE(dropped.isGone);

    for (int opens = 0; opens < 2; ++opens) {
        Terminal next(link);
        ASSERT_TRUE(next.write("AT\r"));
        EXPECT_EQ(next.readUntil("OK\r\n"), "AT\r\r\nOK\r\n");
    }
    EXPECT_EQ(simulator.stop(SIGTERM), 0);
    EXPECT_FALSE(QFileInfo(link).isSymLink());
}

TEST(Program, RefusesWhatItCannotBe)
{
    const QStringList refused[] = {
        {},
        {QStringLiteral("--tcp"), QStringLiteral("x")},
        {QStringLiteral("--tcp"), QStringLiteral("65536")},
        {QStringLiteral("--tcp"), QStringLiteral("0"), QStringLiteral("--pty"),
         QStringLiteral("/nowhere/modem")},
        {QStringLiteral("--pty"), QStringLiteral("/nowhere/modem")},
        {QStringLiteral("--tcp"), QStringLiteral("0"), QStringLiteral("--door"),
         QStringLiteral("Hovedport")},
        {QStringLiteral("--tcp"), QStringLiteral("0"), QStringLiteral("--delay"),
         QStringLiteral("-1")},
        {QStringLiteral("--tcp"), QStringLiteral("0"), QStringLiteral("more")},
    };
    for (const QStringList &arguments : refused) {
        RunningSimulator simulator(arguments);
        EXPECT_EQ(simulator.ready(), QByteArray());
        EXPECT_EQ(simulator.waitForEnd(), 1) << qPrintable(arguments.join(u' '));
    }
}

} // namespace
