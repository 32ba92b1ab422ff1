#pragma once

#include <QString>

// The connection strings of the program and the files beside the database.

/// The password that every database of the program has.
QString databasePassword();

/// What Connection opens.
QString connectionString(const QString &path);
/// Either end of a compaction.
QString compactionString(const QString &path);
/// What stands for a newly chosen file until OpenDatabase replaces it; it never reaches an engine.
QString chosenString(const QString &path);

/// The path without its last 4 characters and "TMP.mdb" behind it. A path without an ending of
/// four characters loses a part of its name.
QString tempDatabasePath(const QString &path);
/// The same with "BAK.mdb".
QString backupDatabasePath(const QString &path);

/// The path and password in a connection string; case of the keys doesn't count.
struct ConnectionParts {
    QString path;
    QString password;
};
ConnectionParts connectionParts(const QString &connectionString);
