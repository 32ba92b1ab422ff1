#include "simulator/TcpPort.h"

#include "platform/RuntimeFailure.h"

namespace {

constexpr qint64 kMostUnsent = 1'048'576;

} // namespace

TcpPort::TcpPort(quint16 port, Events events) : events_(std::move(events))
{
    if (!server_.listen(QHostAddress::LocalHost, port)) {
        throw RuntimeFailure(
            QStringLiteral("Port %1 cannot be had: %2").arg(port).arg(server_.errorString()));
    }
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] { takeClient(); });
}

TcpPort::~TcpPort()
{
    if (client_) {
        client_->disconnect(&server_);
    }
}

QString TcpPort::name() const
{
    return QStringLiteral("tcp %1").arg(server_.serverPort());
}

void TcpPort::takeClient()
{
    while (server_.hasPendingConnections()) {
        drop();
        client_ = server_.nextPendingConnection();
        client_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(client_, &QTcpSocket::readyRead, &server_, [this] { readClient(); });
        QObject::connect(client_, &QTcpSocket::disconnected, &server_, [this] { forgetClient(); });
    }
}

void TcpPort::readClient()
{
    const TelnetFilter::Result result = telnet_.receive(client_->readAll());
    if (client_->bytesToWrite() < kMostUnsent) {
        client_->write(result.answer);
    }
    if (!result.data.isEmpty()) {
        events_.received(result.data);
    }
}

void TcpPort::forgetClient()
{
    client_->disconnect(&server_);
    client_->deleteLater();
    client_.clear();
    telnet_ = TelnetFilter();
    events_.closed();
}

void TcpPort::write(const QByteArray &bytes)
{
    if (client_ && client_->bytesToWrite() < kMostUnsent) {
        const QByteArray sent = TelnetFilter::escaped(bytes);
        // As mere bytes: of a QByteArray, the socket would keep each single echo as a piece.
        client_->write(sent.constData(), sent.size());
    }
}

void TcpPort::drop()
{
    if (!client_) {
        return;
    }
    // What was said before the cut still arrives: the prompt stands in front of it.
    // Who doesn't read it is only waited for until the next one leaves.
    delete leaving_;
    leaving_ = std::exchange(client_, nullptr);
    leaving_->disconnect(&server_);
    QObject::connect(leaving_, &QTcpSocket::disconnected, leaving_, &QObject::deleteLater);
    leaving_->disconnectFromHost();
    telnet_ = TelnetFilter();
    events_.closed();
}
