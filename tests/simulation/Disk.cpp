#include "simulation/Disk.h"

#include <sqlcipher/sqlite3.h>

#include <cstring>
#include <new>
#include <utility>

// The engine's interface to files, written out in its own names: each function asks the disk for a
// fault first, and hands the rest on to the functions of the system's VFS.

namespace {

sqlite3_vfs *below = nullptr;

/// The system's file stands behind it in the same memory.
struct File {
    sqlite3_file base;
    sqlite3_file *real() { return reinterpret_cast<sqlite3_file *>(this + 1); }
};

sqlite3_file *real(sqlite3_file *file)
{
    return reinterpret_cast<File *>(file)->real();
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
    const int written =
        real(file)->pMethods->xWrite(real(file), bytes, isLast ? count / 2 : count, at);
    return isLast ? SQLITE_IOERR_WRITE : written;
}

const sqlite3_io_methods kFile = {
    .iVersion = 1,
    .xClose = [](sqlite3_file *f) { return real(f)->pMethods->xClose(real(f)); },
    .xRead =
        [](sqlite3_file *f, void *bytes, int count, sqlite3_int64 at) {
            return unlessFaulty(readingResult(), [&] {
                return real(f)->pMethods->xRead(real(f), bytes, count, at);
            });
        },
    .xWrite = write,
    .xTruncate =
        [](sqlite3_file *f, sqlite3_int64 size) {
            return unlessFaulty(writingResult(),
                                [&] { return real(f)->pMethods->xTruncate(real(f), size); });
        },
    .xSync = [](sqlite3_file *, int) { return writingResult(); }, // no power cuts: kills alone
    .xFileSize = [](sqlite3_file *f,
                    sqlite3_int64 *size) { return real(f)->pMethods->xFileSize(real(f), size); },
    .xLock =
        [](sqlite3_file *f, int lock) {
            return Disk::instance().isDead() ? SQLITE_IOERR_LOCK
                                             : real(f)->pMethods->xLock(real(f), lock);
        },
    .xUnlock = [](sqlite3_file *f, int lock) { return real(f)->pMethods->xUnlock(real(f), lock); },
    .xCheckReservedLock =
        [](sqlite3_file *f, int *out) {
            return real(f)->pMethods->xCheckReservedLock(real(f), out);
        },
    .xFileControl =
        [](sqlite3_file *f, int what, void *value) {
            return real(f)->pMethods->xFileControl(real(f), what, value);
        },
    .xSectorSize = [](sqlite3_file *f) { return real(f)->pMethods->xSectorSize(real(f)); },
    .xDeviceCharacteristics =
        [](sqlite3_file *f) { return real(f)->pMethods->xDeviceCharacteristics(real(f)); },
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

int open(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    const bool isNew = (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    const Disk &disk = Disk::instance();
    file->pMethods = nullptr;
    if (disk.isDead() || (isNew && disk.fault() == Disk::Fault::ReadOnly)) {
        return SQLITE_CANTOPEN;
    }
    const int result = below->xOpen(below, name, real(file), flags, outFlags);
    if (result == SQLITE_OK) {
        file->pMethods = &kFile;
    }
    return result;
}

int remove(sqlite3_vfs *, const char *name, int syncDirectory)
{
    return unlessFaulty(writingResult(), [&] {
        if (Disk::instance().isLastWrite()) {
            return SQLITE_IOERR_DELETE; // before the journal is gone: the work is undone
        }
        return below->xDelete(below, name, syncDirectory);
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
    own.szOsFile = static_cast<int>(sizeof(File)) + below->szOsFile;
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
