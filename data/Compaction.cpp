#include "data/Compaction.h"

#include "data/Connection.h"
#include "data/DatabasePaths.h"
#include "data/FileUse.h"
#include "data/NewFile.h"
#include "platform/RuntimeFailure.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr const char *kNotCopied = QT_TRANSLATE_NOOP("Compaction", "Kan ikke kopiere %1: %2");

[[noreturn]] void fail(const char *text, const QFile &file)
{
    throw RuntimeFailure(
        QCoreApplication::translate("Compaction", text).arg(file.fileName(), file.errorString()));
}

/// Plays back what a killed writer has left beside the file, and reads every page of it.
void readWhole(const QString &path, const std::shared_ptr<FileUse> &use)
{
    const auto source = Connection::open(compactionString(path), use);
    const QString found = source->single(QStringLiteral("PRAGMA quick_check")).toString();
    if (found != u"ok") {
        throw RuntimeFailure(found);
    }
}

/// An earlier file of this name stands until the copy is whole.
void copyOver(const QString &path, const QString &backupPath)
{
    constexpr qint64 kPiece = 1 << 20; // bytes
    QFile file(path);
    QSaveFile copy(backupPath);
    bool copied = file.open(QIODevice::ReadOnly) && copy.open(QIODevice::WriteOnly);
    while (copied && !file.atEnd()) {
        const QByteArray piece = file.read(kPiece);
        copied = !piece.isEmpty() && copy.write(piece) == piece.size();
    }
    if (!copied || !copy.setPermissions(file.permissions()) || !copy.commit()) {
        const QFileDevice &failed =
            file.error() != QFileDevice::NoError ? static_cast<const QFileDevice &>(file) : copy;
        throw RuntimeFailure(
            QCoreApplication::translate("Compaction", kNotCopied).arg(path, failed.errorString()));
    }
}

/// Writes every row into an empty file with the same password.
void rewrite(const QString &sourceString, const QString &targetString,
             const std::shared_ptr<FileUse> &use)
{
    const ConnectionParts target = connectionParts(targetString);
    const auto source = Connection::open(sourceString, use);
    source->run(QStringLiteral("ATTACH ? AS kopi KEY ?"), {target.path, target.password});
    // The transaction takes the source's lock, too: other programs wait.
    source->run(QStringLiteral("BEGIN EXCLUSIVE"));
    source->run(QStringLiteral("SELECT sqlcipher_export('kopi')"));
    const int schema = source->single(QStringLiteral("PRAGMA main.user_version")).toInt();
    source->run(QStringLiteral("PRAGMA kopi.user_version = %1").arg(schema));
    source->run(QStringLiteral("COMMIT"));
}

} // namespace

void compactDatabase(const QString &path, const QString &tempPath, const QString &backupPath)
{
    const std::shared_ptr<FileUse> alone = FileUse::alone(path);
    readWhole(path, alone); // a broken file must not take the place of a good backup
    copyOver(path, backupPath);
    NewFile compacted(tempPath);
    rewrite(compactionString(path), compactionString(tempPath), alone);
    // Others, under another account, write it tomorrow as they do today.
    if (!QFile::setPermissions(tempPath, QFile::permissions(path))) {
        throw RuntimeFailure(
            QCoreApplication::translate("Compaction", kNotCopied).arg(path, qt_error_string()));
    }
    compacted.keep();
    // Behind a link it is the file that others have open tomorrow.
    QFile file(QFileInfo(path).canonicalFilePath());
    if (!file.remove()) {
        fail(QT_TRANSLATE_NOOP("Compaction", "Kan ikke slette %1: %2"), file);
    }
    QFile temp(tempPath);
    if (!temp.rename(file.fileName())) {
        fail(QT_TRANSLATE_NOOP("Compaction", "Kan ikke gi %1 nytt navn: %2"), temp);
    }
}
