#pragma once

#include <QString>

/// Writes a database anew without its gaps: a copy goes to backupPath, over an earlier one; the
/// compacted file is made at tempPath and takes the place of path. Nobody may have it open.
/// Cut off at whatever step, it leaves every row in a whole file under one of the three names, and
/// the earlier backup until the new one is whole.
/// @throws RuntimeFailure when somebody has the file open or that cannot be told, when it is
/// damaged, tempPath exists already, or a step fails. path is then as it was, unless it was the
/// very last step, the renaming: only tempPath has the rows then. When one of the last two steps
/// fails tempPath stays, and the next compaction fails until somebody has looked at it.
void compactDatabase(const QString &path, const QString &tempPath, const QString &backupPath);
