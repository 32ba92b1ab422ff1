#include "data/FileUse.h"

#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

std::unique_ptr<FileUse> FileUse::shared(const QString &path)
{
    return take(path, LOCK_SH);
}

std::unique_ptr<FileUse> FileUse::alone(const QString &path)
{
    return take(path, LOCK_EX);
}

std::unique_ptr<FileUse> FileUse::take(const QString &path, int lock)
{
    const QByteArray name = QFile::encodeName(path + QStringLiteral("-lock"));
    // A folder that takes no new file is no obstacle to reading the database in it.
    std::unique_ptr<FileUse> use(
        new FileUse(::open(name.constData(), O_RDONLY | O_CREAT | O_CLOEXEC, 0666)));
    if (use->descriptor_ >= 0 && ::flock(use->descriptor_, lock | LOCK_NB) != 0 &&
        errno == EWOULDBLOCK) {
        throw RuntimeFailure(
            QCoreApplication::translate("Connection", "Databasen er i bruk av et annet program: %1")
                .arg(path));
    }
    return use;
}

FileUse::~FileUse()
{
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}
#else
std::unique_ptr<FileUse> FileUse::shared(const QString &)
{
    return {};
}

std::unique_ptr<FileUse> FileUse::alone(const QString &)
{
    return {};
}

FileUse::~FileUse() = default;
#endif
