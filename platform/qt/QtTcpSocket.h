#pragma once

#include "platform/TcpSocket.h"

#include <QTcpSocket>

/// A TCP connection of the machine. Failures bear the numbers that operators know from
/// Windows Sockets, on every system.
class QtTcpSocket : public TcpSocket {
public:
    QtTcpSocket();
    ~QtTcpSocket() override;
    void setEvents(Events events) override;
    void connectTo(const QString &host, quint16 port) override;
    State state() const override;
    void write(const QByteArray &bytes) override;
    void close() override;

private:
    void keepAlive();
    void later(std::function<void()> event);
    void deliverData();
    void fail(QAbstractSocket::SocketError error);

    Events events_;
    QTcpSocket socket_;
    /// Counts connections: an event of an earlier one that still stands in the event loop is
    /// nobody's.
    quint64 connection_ = 0;
    bool hasStood_ = false; ///< the connection, since connectTo
};
