#include "platform/RuntimeFailure.h"
#include "platform/qt/QtHost.h"
#include "platform/qt/QtSerialPort.h"
#include "platform/qt/QtTcpSocket.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

namespace {

struct Format {
    const char *name;
    const char *locale;
    const char *expected;
};
struct DateFormat : testing::TestWithParam<Format> {};

} // namespace

TEST_P(DateFormat, HasTwoDigitsForDayAndMonthAndFourForTheYear)
{
    EXPECT_EQ(fullDateFormat(QString::fromUtf8(GetParam().locale)).toStdString(),
              GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Locales, DateFormat,
                         testing::Values(Format{"norwegian", "dd.MM.yyyy", "dd.MM.yyyy"},
                                         Format{"american", "M/d/yy", "MM/dd/yyyy"},
                                         Format{"swedish", "yyyy-MM-dd", "yyyy-MM-dd"},
                                         Format{"bulgarianWithWords", "d.MM.yy 'г'.",
                                                "dd.MM.yyyy ."},
                                         Format{"weekdayInFront", "ddd d.M.yyyy", "dd.MM.yyyy"},
                                         Format{"monthAlone", "MM yyyy", "dd.MM.yyyy"},
                                         Format{"monthAsAWord", "d MMM yyyy", "dd.MM.yyyy"},
                                         Format{"empty", "", "dd.MM.yyyy"}),
                         [](const auto &tested) { return std::string(tested.param.name); });

TEST(ComPorts, FollowTheirLinkWhereThereIsOne)
{
    QStandardPaths::setTestModeEnabled(true);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                           QStringLiteral("/ports");
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString link = folder + QStringLiteral("/com7");
    QFile::remove(link);
    const QtHost host;
    EXPECT_EQ(host.comPortDevice(7), QStringLiteral("/dev/ttyS6"));
    // A link to a device that is switched off still means that device.
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/lukora-not-there"), link));
    EXPECT_EQ(host.comPortDevice(7), link);
    QFile::remove(link);
    QStandardPaths::setTestModeEnabled(false);
}

namespace {

/// The far end of a pseudo-terminal, which the port takes for a serial device.
struct Wire {
    Wire() : master(::posix_openpt(O_RDWR | O_NOCTTY))
    {
        ::grantpt(master);
        ::unlockpt(master);
        device = QString::fromLocal8Bit(::ptsname(master));
    }
    ~Wire() { unplug(); }
    void unplug()
    {
        if (master >= 0) {
            ::close(master);
            master = -1;
        }
    }
    int master;
    QString device;
};

bool carries(QtSerialPort &port, qint64 count)
{
    return QTest::qWaitFor([&] { return port.bytesAvailable() >= count; }, 3000);
}

} // namespace

TEST(SerialPortOfTheMachine, CarriesEveryByteBothWays)
{
    Wire wire;
    QtSerialPort port;
    port.open(wire.device);
    ASSERT_TRUE(port.isOpen());
    ASSERT_EQ(::write(wire.master, "\x01\r\n\xff", 4), 4);
    ASSERT_TRUE(carries(port, 4));
    EXPECT_EQ(port.takeCharacter(), 1);
    EXPECT_EQ(port.takeCharacter(), '\r');
    EXPECT_EQ(port.takeCharacter(), '\n');
    EXPECT_EQ(port.takeCharacter(), 0xff);
    port.write("AT\r");
    QTest::qWait(20);
    char answer[8] = {};
    EXPECT_EQ(::read(wire.master, answer, sizeof answer), 3);
    EXPECT_STREQ(answer, "AT\r");
}

TEST(SerialPortOfTheMachine, FailsOnceWhenTheDeviceGoesAndIsClosedThen)
{
    Wire wire;
    QtSerialPort port;
    port.open(wire.device);
    wire.unplug();
    bool failed = false;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            try {
                port.bytesAvailable();
            } catch (const RuntimeFailure &) {
                failed = true;
            }
            return failed;
        },
        3000));
    EXPECT_FALSE(port.isOpen());
    EXPECT_EQ(port.bytesAvailable(), 0);
    EXPECT_THROW(port.write("AT\r"), RuntimeFailure);
}

TEST(SerialPortOfTheMachine, RefusesWhatIsNoPort)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("brev.txt")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QtSerialPort port;
    EXPECT_THROW(port.open(file.fileName()), RuntimeFailure);
    EXPECT_THROW(port.open(folder.filePath(QStringLiteral("borte"))), RuntimeFailure);
    EXPECT_FALSE(port.isOpen());
}

namespace {

struct Network : testing::Test {
    Network()
    {
        server.listen(QHostAddress::LocalHost);
        socket.setEvents({.connected = [this] { log.append(QStringLiteral("connected")); },
                          .data = [this](const QByteArray &data) { received += data; },
                          .failure =
                              [this](int number, const QString &words) {
                                  log.append(QString::number(number));
                                  EXPECT_FALSE(words.isEmpty());
                              },
                          .closedByFarSide =
                              [this] {
                                  log.append(
                                      QStringLiteral("closed with %1 bytes").arg(received.size()));
                              }});
    }
    QTcpSocket *connectBoth()
    {
        socket.connectTo(QStringLiteral("127.0.0.1"), server.serverPort());
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return !log.isEmpty() && server.hasPendingConnections(); }, 3000));
        return server.nextPendingConnection();
    }
    QTcpServer server;
    QStringList log;
    QByteArray received;
    QtTcpSocket socket;
};

} // namespace

TEST_F(Network, DeliversTheLastBytesBeforeTheEnd)
{
    QTcpSocket *far = connectBoth();
    ASSERT_NE(far, nullptr);
    EXPECT_EQ(socket.state(), TcpSocket::State::Connected);
    far->write(QByteArray(100'000, 'x'));
    far->disconnectFromHost();
    EXPECT_TRUE(QTest::qWaitFor([&] { return log.size() == 2; }, 3000));
    EXPECT_EQ(log, (QStringList{QStringLiteral("connected"),
                                QStringLiteral("closed with 100000 bytes")}));
    EXPECT_EQ(socket.state(), TcpSocket::State::Closed);
}

TEST_F(Network, BearsTheNumberOfARefusal)
{
    const quint16 port = server.serverPort();
    server.close();
    socket.connectTo(QStringLiteral("127.0.0.1"), port);
    EXPECT_TRUE(log.isEmpty()) << "an event from inside a call";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !log.isEmpty(); }, 3000));
    EXPECT_EQ(log, QStringList{QStringLiteral("10061")});
}

TEST_F(Network, DropsWhatAClosedConnectionStillHadToSay)
{
    QTcpSocket *far = connectBoth();
    ASSERT_NE(far, nullptr);
    far->write("OK\r");
    far->disconnectFromHost();
    socket.close();
    QTest::qWait(50);
    EXPECT_EQ(log, QStringList{QStringLiteral("connected")});
    EXPECT_TRUE(received.isEmpty());
}
