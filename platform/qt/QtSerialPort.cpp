#include "platform/qt/QtSerialPort.h"

#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

// What a modem sends while nobody reads waits here, and behind that in the driver.
constexpr qint64 kReadBuffer = 64 * 1024;

QString words(const char *text)
{
    return QCoreApplication::translate("SerialPort", text);
}

/// A link also by what it stands for, which may not be there.
QString nameOf(const QFileInfo &device)
{
    return device.isSymLink()
               ? device.fileName() + QStringLiteral(" (") + device.symLinkTarget() + u')'
               : device.filePath();
}

QString openFailure(QSerialPort::SerialPortError error, const QFileInfo &device)
{
    const QString name = nameOf(device);
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return words("Porten %1 finnes ikke. Er modemet koblet til?").arg(name);
    case QSerialPort::PermissionError:
        return device.isReadable() && device.isWritable()
                   ? words("Porten %1 er i bruk av et annet program.").arg(name)
                   : words("Du har ikke adgang til porten %1. Du må være med i gruppen %2; be den "
                           "som styrer maskinen, om det, og logg på maskinen på nytt.")
                         .arg(name, device.group());
    default:
        return words("%1 er ingen serieport med et modem.").arg(name);
    }
}

} // namespace

QtSerialPort::QtSerialPort()
{
    port_.setBaudRate(QSerialPort::Baud9600);
    port_.setDataBits(QSerialPort::Data8);
    port_.setParity(QSerialPort::NoParity);
    port_.setStopBits(QSerialPort::OneStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    port_.setReadBufferSize(kReadBuffer);
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                     [this](QSerialPort::SerialPortError error) {
                         if (port_.isOpen() && error != QSerialPort::NoError) {
                             lose();
                         }
                     });
}

void QtSerialPort::open(const QString &device)
{
    close();
    // Two links to one device must meet in one lock.
    const QString target = QFileInfo(device).canonicalFilePath();
    port_.setPortName(target.isEmpty() ? device : target);
    if (!port_.open(QIODevice::ReadWrite)) {
        throw RuntimeFailure(openFailure(port_.error(), QFileInfo(device)));
    }
}

bool QtSerialPort::isOpen() const
{
    return port_.isOpen() || lost_;
}

void QtSerialPort::close()
{
    if (port_.isOpen()) {
        port_.close();
    }
    lost_ = false;
}

void QtSerialPort::write(const QByteArray &bytes)
{
    throwIfLost();
    if (!port_.isOpen()) {
        throw RuntimeFailure(words("Porten er ikke åpen."));
    }
    const bool taken = port_.write(bytes) == bytes.size();
    port_.flush();
    throwIfLost();
    if (!taken) {
        throw RuntimeFailure(words("Modemet på porten %1 tar ikke imot.").arg(port_.portName()));
    }
}

qint64 QtSerialPort::bytesAvailable()
{
    throwIfLost();
    return port_.isOpen() ? port_.bytesAvailable() : 0;
}

unsigned char QtSerialPort::takeCharacter()
{
    char character = 0;
    port_.getChar(&character);
    return static_cast<unsigned char>(character);
}

// A device that hangs up stays readable without a byte in it, and would keep the event loop awake
// for good. It is let go outside of its own signal, and the next one who asks is told.
void QtSerialPort::lose()
{
    lost_ = true;
    QMetaObject::invokeMethod(
        &port_,
        [this] {
            if (lost_) {
                port_.close();
            }
        },
        Qt::QueuedConnection);
}

void QtSerialPort::throwIfLost()
{
    if (!lost_) {
        return;
    }
    const QString name = port_.portName();
    close();
    throw RuntimeFailure(words("Forbindelsen med porten %1 er brutt.").arg(name));
}
