#include "platform/qt/QtHost.h"

#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QSerialPortInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QSysInfo>

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

} // namespace

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
    const QString link = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                         QStringLiteral("/ports/com%1").arg(number);
    return QFileInfo(link).isSymLink() || QFileInfo::exists(link)
               ? link
               : QStringLiteral("/dev/ttyS%1").arg(number - 1);
#endif
}

QStringList QtHost::serialPorts() const
{
    QStringList names;
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &port : ports) {
        names.append(port.portName());
    }
    return names;
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
