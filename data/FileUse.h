#pragma once

#include <QString>

#include <memory>

/// Says that a database file is in use, to every program of ours on every PC, for as long as the
/// object lives: many may share a file, or one may have it alone, as a compaction must.
///
/// The engine locks the file only during a statement, so that an idle PC would not be noticed.
/// The lock lies on an empty file beside the database, its name with "-lock" behind it, which
/// stays there and everybody may write. On Windows an open file cannot be deleted, and that is
/// enough.
class FileUse {
public:
    /// Where no lock can be had, as in a folder that may not be written, the file is used unseen.
    /// @throws RuntimeFailure when somebody has the file alone.
    static std::unique_ptr<FileUse> shared(const QString &path);
    /// @throws RuntimeFailure when anybody has the file open, and when no lock can be had.
    static std::unique_ptr<FileUse> alone(const QString &path);
    ~FileUse();
    FileUse(const FileUse &) = delete;
    FileUse &operator=(const FileUse &) = delete;

private:
    explicit FileUse(int descriptor) : descriptor_(descriptor) {}
    static std::unique_ptr<FileUse> take(const QString &path, int lock, int &failure);
    int descriptor_;
};
