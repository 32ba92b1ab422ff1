#pragma once

#include "platform/SerialPort.h"

#include <QSerialPort>

/// A serial port of the machine.
class QtSerialPort : public SerialPort {
public:
    QtSerialPort();
    void open(const QString &device) override;
    bool isOpen() const override;
    void close() override;
    void write(const QByteArray &bytes) override;
    qint64 bytesAvailable() override;
    unsigned char takeCharacter() override;

private:
    void lose();
    void throwIfLost();

    QSerialPort port_;
    bool lost_ = false; ///< the device went while the port was open, and nobody knows yet
};
