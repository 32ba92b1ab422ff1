#pragma once

#include <QString>

#include <utility>
#include <vector>

class QTableView;
class SettingsStore;

// The columns of a grid as its operator left them, under a key of the settings: from the left, each
// with its width in pixels, "2:77;0:120;...". Anybody may have written to the settings.

constexpr int kNarrowestColumn = 10; ///< pixels that can still be taken hold of

/// Column and width, from the left. Empty when none were left, or not each of so many columns once,
/// with a width that it can have.
std::vector<std::pair<int, int>> storedColumns(const SettingsStore &settings, const QString &key,
                                               std::size_t count);
void storeColumns(SettingsStore &settings, const QString &key, const QTableView &grid);
