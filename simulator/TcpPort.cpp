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
    const QByteArray data = telnet_.take(client_->readAll());
    const QByteArray answers = telnet_.takeAnswers();
    if (!answers.isEmpty()) {
        client_->write(answers);
    }
    if (!data.isEmpty()) {
        events_.received(data);
    }
}

void TcpPort::forgetClient()
{
    client_->disconnect(&server_);
    client_->deleteLater();
    client_.clear();
    telnet_.reset();
    events_.closed();
}

void TcpPort::write(const QByteArray &bytes)
{
    if (client_ && client_->bytesToWrite() < kMostUnsent) {
        client_->write(TelnetFilter::escaped(bytes));
    }
}

void TcpPort::drop()
{
    if (!client_) {
        return;
    }
    // What was said before the cut still arrives: the prompt stands in front of it.
    QTcpSocket *leaving = client_;
    leaving->disconnect(&server_);
    client_.clear();
    QObject::connect(leaving, &QTcpSocket::disconnected, leaving, &QObject::deleteLater);
    leaving->disconnectFromHost();
    telnet_.reset();
    events_.closed();
}
