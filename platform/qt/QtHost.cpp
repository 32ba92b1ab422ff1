#include "platform/qt/QtHost.h"

#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QSerialPortInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QSysInfo>

#include <algorithm>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <pwd.h>
#include <unistd.h>
#endif

namespace {

/// The programs that may tell of the machine, the best first, with their arguments.
QList<QStringList> systemInformation()
{
#ifdef Q_OS_WIN
    const QSettings installed(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft"),
                              QSettings::NativeFormat);
    const QString program = installed.value(QStringLiteral("Shared Tools/MSInfo/PATH")).toString();
    const QString folder =
        installed.value(QStringLiteral("Shared Tools Location/MSINFO")).toString();
    return {{program}, {folder + QStringLiteral("\\MSINFO32.EXE")}};
#else
    return {{QStringLiteral("kinfocenter")},
            {QStringLiteral("hardinfo2")},
            {QStringLiteral("hardinfo")},
            {QStringLiteral("gnome-control-center"), QStringLiteral("info-overview")},
            {QStringLiteral("cinnamon-settings"), QStringLiteral("info")}};
#endif
}

constexpr int kFirstFreePort = 5; // those before have entries in the menu, for built-in ports
constexpr int kHighestPort = 254;

/// 0 for a name that stands for none.
int numberOfName(const QString &name)
{
    const bool isBuiltIn = name.startsWith(QStringLiteral("ttyS"));
    const bool isCom = name.startsWith(QStringLiteral("COM"));
    bool isNumber = false;
    const int number = name.mid(isBuiltIn ? 4 : 3).toInt(&isNumber) + (isBuiltIn ? 1 : 0);
    return (isBuiltIn || isCom) && isNumber && number <= kHighestPort ? number : 0;
}

QString portLink(int number)
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QStringLiteral("/ports/com%1").arg(number);
}

} // namespace

std::vector<ComPort> numberedPorts(const std::vector<ComPort> &ports,
                                   const QMap<int, QString> &links)
{
    QMap<int, ComPort> numbered;
    std::vector<ComPort> others;
    for (const ComPort &port : ports) {
        const int ofName = numberOfName(port.name);
        const int number = links.key(port.device, links.contains(ofName) ? 0 : ofName);
        number > 0 ? void(numbered[number] = port) : others.push_back(port);
    }
    int free = kFirstFreePort;
    for (const ComPort &port : others) {
        while (numbered.contains(free) || links.contains(free)) {
            ++free;
        }
        if (free <= kHighestPort) {
            numbered[free] = port;
        }
    }
    std::vector<ComPort> all;
    for (auto port = numbered.begin(); port != numbered.end(); ++port) {
        port->number = port.key();
        all.push_back(*port);
    }
    return all;
}

QString fullDateFormat(const QString &shortFormat)
{
    QString full;
    QChar last;
    bool quoted = false;
    for (const QChar character : shortFormat) {
        if (character == u'\'') {
            quoted = !quoted;
        } else if (!quoted && (character == u'd' || character == u'M' || character == u'y')) {
            if (character != last) {
                full += character == u'y' ? QStringLiteral("yyyy") : QString(2, character);
            }
        } else if (!character.isLetter()) {
            full += character;
        }
        last = character;
    }
    full = full.trimmed();
    const bool inWords = shortFormat.contains(QStringLiteral("MMM"));
    const bool complete =
        !inWords && full.count(u'd') == 2 && full.count(u'M') == 2 && full.count(u'y') == 4;
    return complete ? full : QStringLiteral("dd.MM.yyyy");
}

QString QtHost::userName() const
{
#ifdef Q_OS_WIN
    wchar_t name[255] = {};
    DWORD size = 255;
    return GetUserNameW(name, &size) ? QString::fromWCharArray(name) : QString();
#else
    const passwd *entry = getpwuid(getuid());
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString();
#endif
}

QString QtHost::computerName() const
{
    return QSysInfo::machineHostName();
}

QString QtHost::dateFormat() const
{
    return fullDateFormat(QLocale::system().dateFormat(QLocale::ShortFormat));
}

QString QtHost::comPortDevice(int number) const
{
#ifdef Q_OS_WIN
    return QStringLiteral("COM%1").arg(number);
#else
    const QString link = portLink(number);
    return QFileInfo(link).isSymLink() || QFileInfo::exists(link)
               ? link
               : QStringLiteral("/dev/ttyS%1").arg(number - 1);
#endif
}

std::vector<ComPort> QtHost::comPorts() const
{
    std::vector<ComPort> ports;
    for (const QSerialPortInfo &port : QSerialPortInfo::availablePorts()) {
        const QString maker = port.manufacturer();
        const QString what = port.description();
        ports.push_back({.name = port.portName(),
                         .description = what.contains(maker) ? what : maker + u' ' + what,
                         .device = port.systemLocation()});
    }
    QMap<int, QString> links;
    for (int number = 1; number <= kHighestPort; ++number) {
        if (const QFileInfo link(portLink(number)); link.isSymLink() || link.exists()) {
            const QString device = links[number] = link.canonicalFilePath();
            // The system may not know what hangs there for a serial port.
            if (!device.isEmpty() &&
                std::ranges::find(ports, device, &ComPort::device) == ports.end()) {
                ports.push_back({.name = device, .device = device});
            }
        }
    }
    return numberedPorts(ports, links);
}

void QtHost::keepComPort(const ComPort &port) const
{
#ifdef Q_OS_WIN
    Q_UNUSED(port); // the system itself keeps the numbers
#else
    const auto target = [](const QString &path) { return QFileInfo(path).canonicalFilePath(); };
    const QString link = portLink(port.number);
    if (target(comPortDevice(port.number)) == target(port.device)) {
        return;
    }
    // Devices change their names when they are plugged in in another order; these names stay.
    QString device = port.device;
    const QDir lasting(QStringLiteral("/dev/serial/by-id"));
    const QStringList names = lasting.entryList(QDir::System | QDir::Files);
    for (const QString &name : names) {
        if (target(lasting.filePath(name)) == target(port.device)) {
            device = lasting.filePath(name);
        }
    }
    if (!QDir().mkpath(QFileInfo(link).path()) || !QFile::link(device, link)) {
        throw RuntimeFailure(
            QCoreApplication::translate("QtHost", "Kan ikke lage lenken %1 til porten %2.")
                .arg(link, port.device));
    }
#endif
}

bool QtHost::startSystemInformation() const
{
    for (const QStringList &command : systemInformation()) {
        const QString program = QStandardPaths::findExecutable(command.first());
        if (!program.isEmpty() && QProcess::startDetached(program, command.mid(1))) {
            return true;
        }
    }
    return false;
}
