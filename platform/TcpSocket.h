#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

/// A TCP client connection. The events come from the event loop, never from inside a call.
class TcpSocket {
public:
    enum class State { Closed, Connecting, Connected };

    struct Events {
        std::function<void()> connected;
        std::function<void(const QByteArray &)> data;
        /// Number and words of the failure; the socket may stand in any state.
        std::function<void(int, const QString &)> failure;
        /// A connection that stood is gone, by the far side's will or without a word.
        std::function<void()> closedByFarSide;
    };

    virtual ~TcpSocket() = default;
    virtual void setEvents(Events events) = 0;
    virtual void connectTo(const QString &host, quint16 port) = 0;
    virtual State state() const = 0;
    /// Bytes that cannot be sent are dropped; the failure comes as an event.
    virtual void write(const QByteArray &bytes) = 0;
    /// Closes at once and without an event.
    virtual void close() = 0;
};
