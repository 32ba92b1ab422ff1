#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

/// Where a PC can reach the modem.
class LinePort {
public:
    struct Events {
        std::function<void(const QByteArray &)> received;
        /// The PC has gone, or the line was dropped.
        std::function<void()> closed;
    };

    virtual ~LinePort() = default;
    /// The kind and the address, as "tcp 2323".
    virtual QString name() const = 0;
    /// Bytes for nobody are lost.
    virtual void write(const QByteArray &bytes) = 0;
    /// Cuts the connection that stands; the next one is taken as before.
    /// @throws RuntimeFailure when there is no new line to be had; the port is of no use then.
    virtual void drop() = 0;
};
