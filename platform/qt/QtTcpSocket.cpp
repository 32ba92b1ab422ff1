#include "platform/qt/QtTcpSocket.h"

#include <QCoreApplication>
#include <QNetworkProxy>

#include <utility>

#ifndef Q_OS_WIN
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#endif

namespace {

constexpr qint64 kReadBuffer = 64 * 1024;

struct Failure {
    QAbstractSocket::SocketError error;
    int number; ///< as Windows Sockets counts (winsock2.h)
    const char *description;
};

constexpr Failure kFailures[] = {
    {QAbstractSocket::SocketAccessError, 10013, "Ingen adgang til nettet"},
    {QAbstractSocket::SocketResourceError, 10024, "For mange åpne forbindelser"},
    {QAbstractSocket::UnsupportedSocketOperationError, 10045, "Nettet kan ikke dette"},
    {QAbstractSocket::AddressInUseError, 10048, "Adressen er i bruk"},
    {QAbstractSocket::SocketAddressNotAvailableError, 10049, "Adressen er ikke tilgjengelig"},
    {QAbstractSocket::NetworkError, 10051, "Nettet kan ikke nås"},
    {QAbstractSocket::RemoteHostClosedError, 10054, "Forbindelsen ble brutt av motparten"},
    {QAbstractSocket::SocketTimeoutError, 10060, "Tiden for tilkobling løp ut"},
    {QAbstractSocket::ConnectionRefusedError, 10061, "Tilkobling avvist"},
    {QAbstractSocket::HostNotFoundError, 11001, "Fant ikke verten"},
};
constexpr Failure kOther = {QAbstractSocket::UnknownSocketError, 10107, "Systemkallet feilet"};

const Failure &failureOf(QAbstractSocket::SocketError error)
{
    for (const Failure &failure : kFailures) {
        if (failure.error == error) {
            return failure;
        }
    }
    return kOther;
}

} // namespace

QtTcpSocket::QtTcpSocket()
{
    // The modem stands on the site's own network, whatever the web goes through.
    socket_.setProxy(QNetworkProxy::NoProxy);
    socket_.setReadBufferSize(kReadBuffer);
    QObject::connect(&socket_, &QTcpSocket::connected, &socket_, [this] {
        keepAlive();
        hasStood_ = true;
        later([this] { events_.connected ? events_.connected() : void(); });
    });
    QObject::connect(&socket_, &QTcpSocket::readyRead, &socket_,
                     [this] { later([this] { deliverData(); }); });
    QObject::connect(&socket_, &QTcpSocket::errorOccurred, &socket_,
                     [this](QAbstractSocket::SocketError error) { fail(error); });
}

QtTcpSocket::~QtTcpSocket()
{
    events_ = {};
    close();
}

/// A far side that went without a word is found gone within half a minute, not within hours, though
/// nothing is sent.
void QtTcpSocket::keepAlive()
{
    socket_.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
#ifdef TCP_KEEPIDLE
    const auto descriptor = static_cast<int>(socket_.socketDescriptor());
    constexpr std::pair<int, int> kOptions[] = {
        {TCP_KEEPIDLE, 15}, {TCP_KEEPINTVL, 5}, {TCP_KEEPCNT, 3}, {TCP_USER_TIMEOUT, 30'000}};
    for (const auto &[option, value] : kOptions) { // seconds, times, milliseconds
        setsockopt(descriptor, IPPROTO_TCP, option, &value, sizeof value);
    }
#endif
}

void QtTcpSocket::setEvents(Events events)
{
    events_ = std::move(events);
}

void QtTcpSocket::connectTo(const QString &host, quint16 port)
{
    close();
    hasStood_ = false;
    socket_.connectToHost(host, port);
}

TcpSocket::State QtTcpSocket::state() const
{
    switch (socket_.state()) {
    case QAbstractSocket::ConnectedState:
        return State::Connected;
    case QAbstractSocket::HostLookupState:
    case QAbstractSocket::ConnectingState:
        return State::Connecting;
    default:
        return State::Closed;
    }
}

void QtTcpSocket::write(const QByteArray &bytes)
{
    if (state() == State::Connected) {
        socket_.write(bytes);
        socket_.flush();
    }
}

void QtTcpSocket::close()
{
    ++connection_;
    socket_.abort();
}

void QtTcpSocket::later(std::function<void()> event)
{
    QMetaObject::invokeMethod(
        &socket_,
        [this, connection = connection_, event = std::move(event)] {
            if (connection == connection_) {
                event();
            }
        },
        Qt::QueuedConnection);
}

void QtTcpSocket::deliverData()
{
    const QByteArray data = socket_.readAll();
    if (!data.isEmpty() && events_.data) {
        events_.data(data);
    }
}

void QtTcpSocket::fail(QAbstractSocket::SocketError error)
{
    // The end of a standing connection is no failure, whether the far side makes it or has gone
    // without a word. What it sent before is delivered first.
    if (std::exchange(hasStood_, false)) {
        later([this] {
            deliverData();
            socket_.abort();
            events_.closedByFarSide ? events_.closedByFarSide() : void();
        });
        return;
    }
    const Failure &failure = failureOf(error);
    later([this, failure] {
        if (events_.failure) {
            events_.failure(failure.number,
                            QCoreApplication::translate("TcpSocket", failure.description));
        }
    });
}
