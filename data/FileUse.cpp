#include "data/FileUse.h"

#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t kForAll = 0666;

QByteArray lockName(const QString &path)
{
    const QString file = QFileInfo(path).canonicalFilePath(); // behind a link it is the same one
    return QFile::encodeName((file.isEmpty() ? path : file) + QStringLiteral("-lock"));
}

[[noreturn]] void failInUse(const QString &path)
{
    throw RuntimeFailure(
        QCoreApplication::translate("Connection", "Databasen er i bruk av et annet program: %1")
            .arg(path));
}

} // namespace

std::unique_ptr<FileUse> FileUse::shared(const QString &path)
{
    int failure = 0;
    std::unique_ptr<FileUse> use = take(path, LOCK_SH, failure);
    // A folder that takes no new file, or no lock, is no obstacle to using the database in it.
    if (failure == EWOULDBLOCK) {
        failInUse(path);
    }
    return use;
}

std::unique_ptr<FileUse> FileUse::alone(const QString &path)
{
    int failure = 0;
    std::unique_ptr<FileUse> use = take(path, LOCK_EX, failure);
    if (failure == EWOULDBLOCK) {
        failInUse(path);
    }
    if (failure != 0) {
        throw RuntimeFailure(
            QCoreApplication::translate("Connection", "Kan ikke få databasen alene: %1 (%2)")
                .arg(path, qt_error_string(failure)));
    }
    return use;
}

std::unique_ptr<FileUse> FileUse::take(const QString &path, int lock, int &failure)
{
    const QByteArray name = lockName(path);
    int descriptor = -1;
    // Writable, if possible: over a network only such a file can be locked for one alone.
    for (const int how : {O_RDWR | O_CREAT | O_EXCL, O_RDWR, O_RDONLY}) {
        descriptor = ::open(name.constData(), how | O_CLOEXEC | O_NOFOLLOW, kForAll);
        if (descriptor >= 0 && (how & O_CREAT) != 0) {
            // The mask of the first one must not keep out others, who would come unseen.
            static_cast<void>(::fchmod(descriptor, kForAll));
        }
        if (descriptor >= 0) {
            break;
        }
    }
    if (descriptor < 0 || ::flock(descriptor, lock | LOCK_NB) != 0) {
        failure = errno;
    }
    return std::unique_ptr<FileUse>(new FileUse(descriptor));
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
