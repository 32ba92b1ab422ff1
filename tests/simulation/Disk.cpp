#include "simulation/Disk.h"

#include <sqlcipher/sqlite3.h>

#include <map>
#include <utility>

// Each function of the engine's files that matters asks the disk for a fault first, and hands the
// rest on to the system's.

namespace {

sqlite3_vfs *below = nullptr;

struct Methods {
    sqlite3_io_methods faulty; ///< what the engine calls; the address of a file's Methods, too
    const sqlite3_io_methods *real;
};

const sqlite3_io_methods &real(const sqlite3_file *file)
{
    return *reinterpret_cast<const Methods *>(file->pMethods)->real;
}

int readingResult()
{
    const Disk &disk = Disk::instance();
    return disk.isDead() || disk.fault() == Disk::Fault::Failing ? SQLITE_IOERR_READ : SQLITE_OK;
}

int writingResult()
{
    const Disk &disk = Disk::instance();
    if (disk.isDead()) {
        return SQLITE_IOERR_WRITE;
    }
    switch (disk.fault()) {
    case Disk::Fault::Full:
        return SQLITE_FULL;
    case Disk::Fault::Failing:
        return SQLITE_IOERR_WRITE;
    case Disk::Fault::ReadOnly:
        return SQLITE_READONLY;
    case Disk::Fault::None:
        break;
    }
    return SQLITE_OK;
}

template <class Do> int unlessFaulty(int result, const Do &act)
{
    return result == SQLITE_OK ? act() : result;
}

int write(sqlite3_file *file, const void *bytes, int count, sqlite3_int64 at)
{
    if (const int result = writingResult(); result != SQLITE_OK) {
        return result;
    }
    const bool isLast = Disk::instance().isLastWrite();
    const int written = real(file).xWrite(file, bytes, isLast ? count / 2 : count, at);
    return isLast ? SQLITE_IOERR_WRITE : written;
}

/// The same methods, out of order when the disk is.
const sqlite3_io_methods *faulty(const sqlite3_io_methods *methods)
{
    static std::map<const sqlite3_io_methods *, Methods> all;
    const auto known = all.try_emplace(methods, Methods{*methods, methods}).first;
    sqlite3_io_methods &own = known->second.faulty;
    own.iVersion = 1; // no shared memory
    own.xRead = [](sqlite3_file *f, void *bytes, int count, sqlite3_int64 at) {
        return unlessFaulty(readingResult(), [&] { return real(f).xRead(f, bytes, count, at); });
    };
    own.xWrite = write;
    own.xTruncate = [](sqlite3_file *f, sqlite3_int64 size) {
        return unlessFaulty(writingResult(), [&] { return real(f).xTruncate(f, size); });
    };
    own.xSync = [](sqlite3_file *, int) { return writingResult(); }; // no power cuts: kills alone
    own.xLock = [](sqlite3_file *f, int lock) {
        return Disk::instance().isDead() ? SQLITE_IOERR_LOCK : real(f).xLock(f, lock);
    };
    return &own;
}

int open(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    const bool isNew = (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    const Disk &disk = Disk::instance();
    file->pMethods = nullptr;
    if (disk.isDead() || (isNew && disk.fault() == Disk::Fault::ReadOnly)) {
        return SQLITE_CANTOPEN;
    }
    const int result = below->xOpen(below, name, file, flags, outFlags);
    if (result == SQLITE_OK) {
        file->pMethods = faulty(file->pMethods);
    }
    return result;
}

int remove(sqlite3_vfs *, const char *name, int)
{
    return unlessFaulty(writingResult(), [&] {
        if (Disk::instance().isLastWrite()) {
            return SQLITE_IOERR_DELETE; // before the journal is gone: the work is undone
        }
        return below->xDelete(below, name, 0); // no power cuts here either
    });
}

int sleep(sqlite3_vfs *, int microseconds)
{
    Disk::instance().waited(milliseconds((microseconds + 999) / 1000));
    return microseconds;
}

} // namespace

Disk &Disk::instance()
{
    static Disk disk;
    return disk;
}

Disk::Disk()
{
    below = sqlite3_vfs_find(nullptr);
    static sqlite3_vfs own = *below;
    own.iVersion = 1;
    own.zName = "simulated";
    own.xOpen = open;
    own.xDelete = remove;
    own.xSleep = sleep;
    sqlite3_vfs_register(&own, 1);
}

void Disk::mend()
{
    fault_ = Fault::None;
    dead_ = false;
    writesLeft_ = 0;
}

void Disk::killAtWrite(int number, std::function<void()> killed)
{
    writesLeft_ = number;
    killed_ = std::move(killed);
}

void Disk::waited(milliseconds time) const
{
    if (aside_ == 0 && onWait) {
        onWait(time);
    }
}

bool Disk::isLastWrite()
{
    if (aside_ > 0 || writesLeft_ == 0 || --writesLeft_ > 0) {
        return false;
    }
    dead_ = true;
    killed_();
    return true;
}
