#pragma once

#include "platform/SerialPort.h"
#include "platform/TcpSocket.h"
#include "support/VirtualClock.h"

#include <deque>

/// A COM port whose far end is a function. Tests feed what the modem says.
class FakeSerialPort : public SerialPort {
public:
    void open(const QString &device) override;
    bool isOpen() const override { return open_; }
    void close() override;
    void write(const QByteArray &bytes) override;
    qint64 bytesAvailable() override;
    unsigned char takeCharacter() override;

    void feed(const QByteArray &bytes);
    /// The device vanishes: an open port fails from now on, and no port opens, until plugIn().
    void unplug() { present_ = false; }
    void plugIn() { present_ = true; }

    std::function<void(const QByteArray &)> onWrite;
    QByteArray written; ///< all that the program ever wrote
    QString device;     ///< the last one that opened, or was to
    QString missing;    ///< the device that opens no more

private:
    std::deque<unsigned char> waiting_;
    bool open_ = false;
    bool present_ = true;
};

/// A TCP socket whose far end is a function. Events come through the clock, one millisecond on.
class FakeTcpSocket : public TcpSocket {
public:
    explicit FakeTcpSocket(VirtualClock &clock) : clock_(clock) {}

    void setEvents(Events events) override { events_ = std::move(events); }
    void connectTo(const QString &host, quint16 port) override;
    State state() const override { return state_; }
    void write(const QByteArray &bytes) override;
    void close() override;

    void feed(const QByteArray &bytes);
    void closeByFarSide();
    void fail(int number, const QString &description);

    bool answers = true; ///< the far side takes connections
    bool silent = false; ///< connections hang in the connecting state
    std::function<void(const QByteArray &)> onWrite;
    QByteArray written;
    QString host;
    quint16 port = 0;

private:
    void later(std::function<void()> event);

    VirtualClock &clock_;
    Events events_;
    State state_ = State::Closed;
    int connection_ = 0; ///< events of an earlier connection are dropped
};
