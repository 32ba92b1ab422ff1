#include "simulator/PtyPort.h"

#include "platform/RuntimeFailure.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr qsizetype kMostWaiting = 256 * 1024;

[[noreturn]] void fail(const QByteArray &what)
{
    throw RuntimeFailure(QString::fromLocal8Bit(what + ": " + std::strerror(errno)));
}

bool isLink(const QByteArray &path)
{
    struct stat status;
    return lstat(path.constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

} // namespace

PtyPort::PtyPort(const QString &link, Events events)
    : link_(QFile::encodeName(link)), events_(std::move(events))
{
    try {
        open();
    } catch (const RuntimeFailure &) {
        close();
        throw;
    }
}

PtyPort::~PtyPort()
{
    close();
}

QString PtyPort::name() const
{
    return QStringLiteral("pty %1").arg(QFile::decodeName(link_));
}

void PtyPort::open()
{
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
        fail("No pseudo-terminal");
    }
    std::array<char, 256> path{};
    if (ptsname_r(master_, path.data(), path.size()) != 0) {
        fail("No name of the pseudo-terminal");
    }
    device_ = path.data();
    // Held open: with the last opener gone the master would only report errors.
    slave_ = ::open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios mode{};
    if (slave_ < 0 || tcgetattr(slave_, &mode) != 0) {
        fail(device_);
    }
    cfmakeraw(&mode);
    if (tcsetattr(slave_, TCSANOW, &mode) != 0) {
        fail(device_);
    }
    if (isLink(link_)) {
        unlink(link_.constData());
    }
    if (symlink(device_.constData(), link_.constData()) != 0) {
        fail(link_);
    }
    readable_ = std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Read);
    QObject::connect(readable_.get(), &QSocketNotifier::activated, readable_.get(),
                     [this] { read(); });
    writable_ = std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Write);
    writable_->setEnabled(false);
    QObject::connect(writable_.get(), &QSocketNotifier::activated, writable_.get(),
                     [this] { writeWaiting(); });
}

void PtyPort::close()
{
    // A notifier may be the one that called.
    for (auto *notifier : {&readable_, &writable_}) {
        if (*notifier) {
            (*notifier)->setEnabled(false);
            notifier->release()->deleteLater();
        }
    }
    for (int *file : {&slave_, &master_}) {
        if (*file >= 0) {
            ::close(std::exchange(*file, -1));
        }
    }
    waiting_.clear();
    const QString target = QFile::symLinkTarget(QFile::decodeName(link_));
    if (isLink(link_) && !device_.isEmpty() && QFile::encodeName(target) == device_) {
        unlink(link_.constData());
    }
}

void PtyPort::read()
{
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(master_, bytes.data(), bytes.size());
    if (count > 0) {
        events_.received(QByteArray(bytes.data(), count));
    }
}

void PtyPort::write(const QByteArray &bytes)
{
    waiting_ += bytes.left(kMostWaiting - waiting_.size());
    writeWaiting();
}

void PtyPort::writeWaiting()
{
    const ssize_t count =
        ::write(master_, waiting_.constData(), static_cast<size_t>(waiting_.size()));
    if (count > 0) {
        waiting_.remove(0, count);
    }
    writable_->setEnabled(!waiting_.isEmpty());
}

void PtyPort::drop()
{
    close();
    open();
    events_.closed();
}
