#include "simulator/PtyPort.h"

#include "platform/RuntimeFailure.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr qsizetype kMostWaiting = 262'144;

[[noreturn]] void fail(const QByteArray &what)
{
    throw RuntimeFailure(QString::fromLocal8Bit(what + ": " + std::strerror(errno)));
}

} // namespace

PtyPort::PtyPort(const QString &link, Events events)
    : link_(QFile::encodeName(link)), events_(std::move(events))
{
    try {
        open();
    } catch (const RuntimeFailure &) {
        files_.close();
        throw;
    }
}

PtyPort::~PtyPort()
{
    removeLink();
    files_.close();
}

void PtyPort::Files::close()
{
    for (int *file : {&slave, &master}) {
        if (*file >= 0) {
            ::close(std::exchange(*file, -1));
        }
    }
}

QString PtyPort::name() const
{
    return QStringLiteral("pty %1").arg(QFile::decodeName(link_));
}

void PtyPort::open()
{
    files_.master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (files_.master < 0 || grantpt(files_.master) != 0 || unlockpt(files_.master) != 0) {
        fail("No pseudo-terminal");
    }
    std::array<char, 256> path{};
    if (ptsname_r(files_.master, path.data(), path.size()) != 0) {
        fail("No name of the pseudo-terminal");
    }
    device_ = path.data();
    // Held open: with the last opener gone the master would only report errors.
    files_.slave = ::open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios mode{};
    if (files_.slave < 0 || tcgetattr(files_.slave, &mode) != 0) {
        fail(device_);
    }
    cfmakeraw(&mode);
    if (tcsetattr(files_.slave, TCSANOW, &mode) != 0) {
        fail(device_);
    }
    if (QFileInfo(QFile::decodeName(link_)).isSymLink()) {
        unlink(link_.constData());
    }
    if (symlink(device_.constData(), link_.constData()) != 0) {
        fail(link_);
    }
    readable_ = std::make_unique<QSocketNotifier>(files_.master, QSocketNotifier::Read);
    QObject::connect(readable_.get(), &QSocketNotifier::activated, readable_.get(),
                     [this] { read(); });
    writable_ = std::make_unique<QSocketNotifier>(files_.master, QSocketNotifier::Write);
    writable_->setEnabled(false);
    QObject::connect(writable_.get(), &QSocketNotifier::activated, writable_.get(),
                     [this] { writeWaiting(); });
}

void PtyPort::forgetNotifiers()
{
    // One of them may be the one that called.
    for (auto *notifier : {&readable_, &writable_}) {
        (*notifier)->setEnabled(false);
        notifier->release()->deleteLater();
    }
}

void PtyPort::removeLink()
{
    // It may belong to a later simulator by now.
    if (QFile::encodeName(QFile::symLinkTarget(QFile::decodeName(link_))) == device_) {
        unlink(link_.constData());
    }
}

void PtyPort::read()
{
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(files_.master, bytes.data(), bytes.size());
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
    if (!writable_) {
        return; // a drop that found no new terminal
    }
    const ssize_t count =
        ::write(files_.master, waiting_.constData(), static_cast<size_t>(waiting_.size()));
    if (count > 0) {
        waiting_.remove(0, count);
    }
    writable_->setEnabled(!waiting_.isEmpty());
}

void PtyPort::drop()
{
    forgetNotifiers();
    waiting_.clear();
    // The old line is cut behind the new one, so that who opens the link again at once finds it.
    Files dropped = std::exchange(files_, {});
    open();
    dropped.close();
    events_.closed();
}
