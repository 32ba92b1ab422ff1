#pragma once

#include <QByteArray>
#include <QString>

/// A COM port at 9600 baud, no parity, 8 data bits, one stop bit, no flow control.
/// New characters wake a waiting Clock::yield.
class SerialPort {
public:
    virtual ~SerialPort() = default;
    /// @throws RuntimeFailure when the device is missing, busy or no serial port.
    virtual void open(const QString &device) = 0;
    virtual bool isOpen() const = 0;
    /// Closing a closed port does nothing.
    virtual void close() = 0;
    /// @throws RuntimeFailure when the port is closed or its device is gone.
    virtual void write(const QByteArray &bytes) = 0;
    /// Characters waiting; 0 on a closed port.
    /// @throws RuntimeFailure when the device of an open port is gone (the port is closed then).
    virtual qint64 bytesAvailable() = 0;
    /// Takes one waiting character, 0 to 255. Only with bytesAvailable() above 0.
    virtual unsigned char takeCharacter() = 0;
};
