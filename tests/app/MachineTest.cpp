#include "platform/RuntimeFailure.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/QtSerialPort.h"
#include "platform/qt/QtTcpSocket.h"
#include "platform/qt/SystemClock.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/tcp.h>
#include <stdlib.h>
#include <unistd.h>

TEST(DateFormat, HasTwoDigitsForDayAndMonthAndFourForTheYear)
{
    for (const auto &[ofTheLocale, expected] : {std::pair{u"dd.MM.yyyy"_qs, u"dd.MM.yyyy"_qs},
                                                {u"M/d/yy"_qs, u"MM/dd/yyyy"_qs},
                                                {u"yyyy-MM-dd"_qs, u"yyyy-MM-dd"_qs},
                                                {u"d.MM.yy 'г'."_qs, u"dd.MM.yyyy ."_qs},
                                                {u"ddd d.M.yyyy"_qs, u"dd.MM.yyyy"_qs},
                                                {u"MM yyyy"_qs, u"dd.MM.yyyy"_qs},
                                                {u"d MMM yyyy"_qs, u"dd.MM.yyyy"_qs}}) {
        EXPECT_EQ(fullDateFormat(ofTheLocale), expected) << ofTheLocale.toStdString();
    }
}

QString whatFails(const std::function<void()> &work)
{
    try {
        work();
    } catch (const RuntimeFailure &failure) {
        return failure.description();
    }
    return {};
}

TEST(ComPorts, FollowTheirLinkWhereThereIsOne)
{
    QStandardPaths::setTestModeEnabled(true);
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                      u"/ports"_qs);
    ASSERT_TRUE(folder.mkpath(u"."_qs));
    const QString link = folder.filePath(u"com7"_qs);
    QFile::remove(link);
    const QtHost host;
    EXPECT_EQ(host.comPortDevice(7), u"/dev/ttyS6");
    // A link to a device that is switched off still means that device.
    ASSERT_TRUE(QFile::link(u"/dev/lukora-not-there"_qs, link));
    EXPECT_EQ(host.comPortDevice(7), link);
    EXPECT_EQ(whatFails([&] { QtSerialPort().open(link); }),
              u"Porten com7 (/dev/lukora-not-there) finnes ikke. Er modemet koblet til?");
    const ComPort port{.number = 7, .device = u"/dev/null"_qs};
    EXPECT_EQ(whatFails([&] { host.keepComPort(port); }),
              u"Kan ikke lage lenken %1 til porten /dev/null."_qs.arg(link));
    QFile::remove(link);
    QDir().rmdir(folder.path()); // as on a machine that has no number yet
    host.keepComPort(port);
    host.keepComPort(port);
    EXPECT_EQ(QFileInfo(host.comPortDevice(7)).canonicalFilePath(), u"/dev/null");
    QFile::remove(link);
    QStandardPaths::setTestModeEnabled(false);
}

TEST(SystemInformation, IsTheFirstKnownProgramThatIsThere)
{
    const QTemporaryDir folder;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(folder.path()));
    EXPECT_FALSE(QtHost().startSystemInformation());
    ASSERT_TRUE(QFile::link(u"/bin/true"_qs, folder.filePath(u"hardinfo"_qs)));
    EXPECT_TRUE(QtHost().startSystemInformation());
    qputenv("PATH", path);
}

TEST(ComPorts, HaveTheirOwnNumbersOrGetFreeOnes)
{
    const auto numbers = [](const QStringList &names, const QMap<int, QString> &links) {
        std::vector<ComPort> ports;
        for (const QString &name : names) {
            ports.push_back({.name = name, .device = u"/dev/"_qs + name});
        }
        QStringList result;
        for (const ComPort &port : numberedPorts(ports, links)) {
            result += QString::number(port.number) + u' ' + port.name;
        }
        return result.join(u' ');
    };
    EXPECT_EQ(numbers({u"ttyUSB1"_qs, u"ttyUSB0"_qs, u"ttyS1"_qs, u"ttyS4"_qs, u"COM3"_qs}, {}),
              u"2 ttyS1 3 COM3 5 ttyS4 6 ttyUSB1 7 ttyUSB0");
    // Linked, not there, and in the place of a built-in port; of two links the first counts.
    EXPECT_EQ(numbers({u"ttyACM0"_qs, u"ttyS0"_qs, u"ttyUSB0"_qs, u"ttyUSB1"_qs},
                      {{1, u"/dev/ttyUSB0"_qs},
                       {5, u""_qs},
                       {7, u"/dev/ttyUSB1"_qs},
                       {9, u"/dev/ttyUSB1"_qs}}),
              u"1 ttyUSB0 6 ttyACM0 7 ttyUSB1 8 ttyS0");
    EXPECT_EQ(numbers({u"ttyS254"_qs, u"ttyS253"_qs, u"ttySX"_qs}, {}),
              u"5 ttyS254 6 ttySX 254 ttyS253");
}

TEST(SerialPortOfTheMachine, CarriesEveryByteAndFailsOnceWhenTheDeviceGoes)
{
    // A pseudo-terminal, which the port takes for a serial device.
    const int wire = ::posix_openpt(O_RDWR | O_NOCTTY);
    ::grantpt(wire);
    ::unlockpt(wire);
    QtSerialPort port;
    EXPECT_EQ(whatFails([&] { port.open(u"/dev/null"_qs); }),
              u"/dev/null er ingen serieport med et modem.");
    const QString name = QString::fromLocal8Bit(::ptsname(wire));
    {
        QtSerialPort another;
        another.open(name);
        EXPECT_EQ(whatFails([&] { port.open(name); }),
                  u"Porten %1 er i bruk av et annet program."_qs.arg(name));
    }
    EXPECT_FALSE(port.isOpen());
    port.open(name);
    ASSERT_TRUE(port.isOpen());
    ASSERT_EQ(::write(wire, "\x01\r\n\xff", 4), 4);
    ASSERT_TRUE(QTest::qWaitFor([&] { return port.bytesAvailable() == 4; }, 3000));
    for (const int expected : {1, int{'\r'}, int{'\n'}, 0xff}) {
        EXPECT_EQ(port.takeCharacter(), expected);
    }
    port.write("AT\r");
    QTest::qWait(20);
    char answer[8] = {};
    EXPECT_EQ(::read(wire, answer, sizeof answer), 3);
    EXPECT_STREQ(answer, "AT\r");

    ::close(wire);
    const auto fails = [&] {
        try {
            port.bytesAvailable();
            return false;
        } catch (const RuntimeFailure &) {
            return true;
        }
    };
    EXPECT_TRUE(QTest::qWaitFor(fails, 3000));
    EXPECT_FALSE(port.isOpen());
    EXPECT_FALSE(fails());
    EXPECT_THROW(port.write("AT\r"), RuntimeFailure);
}

namespace {

struct Network : testing::Test {
    Network()
    {
        server.listen(QHostAddress::LocalHost);
        socket.setEvents(
            {.connected = [this] { log.append(u"connected"_qs); },
             .data = [this](const QByteArray &data) { received += data.size(); },
             .failure =
                 [this](int number, const QString &words) {
                     log.append(QString::number(number));
                     EXPECT_FALSE(words.isEmpty());
                 },
             .closedByFarSide = [this] { log.append(u"closed at %1"_qs.arg(received)); }});
    }
    bool logs(int count)
    {
        return QTest::qWaitFor([&] { return log.size() == count; }, 3000);
    }
    /// The far side says so many bytes and closes.
    void connectAndSay(int bytes)
    {
        socket.connectTo(u"127.0.0.1"_qs, server.serverPort());
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return !log.isEmpty() && server.hasPendingConnections(); }, 3000));
        EXPECT_EQ(socket.state(), TcpSocket::State::Connected);
        QTcpSocket *far = server.nextPendingConnection();
        far->write(QByteArray(bytes, 'x'));
        far->disconnectFromHost();
    }
    QTcpServer server;
    QStringList log;
    qsizetype received = 0;
    QtTcpSocket socket;
};

} // namespace

TEST_F(Network, DeliversTheLastBytesBeforeTheEndAndNothingOfAClosedConnection)
{
    connectAndSay(3);
    socket.close();
    QTest::qWait(50);
    EXPECT_EQ(log, QStringList{u"connected"_qs});
    log.clear();
    connectAndSay(100'000);
    EXPECT_TRUE(logs(2));
    EXPECT_EQ(log, (QStringList{u"connected"_qs, u"closed at 100000"_qs}));
    EXPECT_EQ(socket.state(), TcpSocket::State::Closed);
}

// The kernel's own count of seconds is taken for granted: half a minute is too long for a test.
TEST_F(Network, AsksAFarSideThatHasFallenSilent)
{
    connectAndSay(0);
    const auto isOurs = [&](int descriptor) {
        sockaddr_in far{};
        socklen_t size = sizeof far;
        return ::getpeername(descriptor, reinterpret_cast<sockaddr *>(&far), &size) == 0 &&
               ntohs(far.sin_port) == server.serverPort();
    };
    int descriptor = 0;
    while (descriptor < 1000 && !isOurs(descriptor)) {
        ++descriptor;
    }
    const auto option = [&](int level, int name) {
        int value = -1;
        socklen_t size = sizeof value;
        EXPECT_EQ(::getsockopt(descriptor, level, name, &value, &size), 0);
        return value;
    };
    EXPECT_NE(option(SOL_SOCKET, SO_KEEPALIVE), 0);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_KEEPIDLE), 15);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_KEEPINTVL) * option(IPPROTO_TCP, TCP_KEEPCNT), 15);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_USER_TIMEOUT), 30'000);
}

TEST(TimerOfTheMachine, IsPrecise)
{
    SystemClock clock;
    const std::unique_ptr<Timer> timer = clock.timer([] {});
    timer->setInterval(30s);
    timer->setEnabled(true);
    auto *object = dynamic_cast<QObject *>(timer.get());
    ASSERT_NE(object, nullptr);
    const auto running = QAbstractEventDispatcher::instance()->registeredTimers(object);
    ASSERT_EQ(running.size(), 1);
    EXPECT_EQ(running.front().interval, 30'000);
    EXPECT_EQ(running.front().timerType, Qt::PreciseTimer);
}

TEST_F(Network, BearsTheNumberOfARefusal)
{
    const quint16 port = server.serverPort();
    server.close();
    socket.connectTo(u"127.0.0.1"_qs, port);
    EXPECT_TRUE(log.isEmpty()) << "an event from inside a call";
    EXPECT_TRUE(logs(1));
    EXPECT_EQ(log, QStringList{u"10061"_qs});
}
