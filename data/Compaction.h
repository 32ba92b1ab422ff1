#pragma once

#include <QString>

/// Writes a database anew without its gaps: a copy goes to backupPath, over an earlier one; the
/// compacted file is made at tempPath and takes the place of path. Nobody may have it open.
/// @throws RuntimeFailure when somebody has the file open, tempPath exists already, or a step
/// fails; path is then as it was. When the last two steps fail tempPath stays, and the next
/// compaction fails until somebody has looked at it.
void compactDatabase(const QString &path, const QString &tempPath, const QString &backupPath);
