#pragma once

#include "platform/TelnetFilter.h"
#include "simulator/LinePort.h"

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

/// A serial-to-TCP bridge with one client; a new one takes the place of the old. It listens on the
/// loopback address only. Telnet commands of the client are refused and kept from the modem.
class TcpPort : public LinePort {
public:
    /// With port 0 any free one.
    /// @throws RuntimeFailure when the port cannot be had.
    TcpPort(quint16 port, Events events);
    ~TcpPort() override;

    QString name() const override;
    void write(const QByteArray &bytes) override;
    void drop() override;

private:
    void takeClient();
    void readClient();
    void forgetClient();

    Events events_;
    QTcpServer server_;
    QPointer<QTcpSocket> client_;
    QPointer<QTcpSocket> leaving_;
    TelnetFilter telnet_;
};
