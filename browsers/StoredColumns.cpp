#include "browsers/StoredColumns.h"

#include "platform/SettingsStore.h"

#include <QHeaderView>
#include <QStringList>
#include <QTableView>

#include <algorithm>

namespace {

constexpr int kWidest = 10'000;

} // namespace

std::vector<std::pair<int, int>> storedColumns(const SettingsStore &settings, const QString &key,
                                               std::size_t count)
{
    std::vector<std::pair<int, int>> columns;
    std::vector<bool> missing(count, true);
    const QStringList left = settings.get(key, QString()).split(u';');
    for (const QString &each : left) {
        bool isNumber = false;
        bool isWidth = false;
        const auto place = each.section(u':', 0, 0).toUInt(&isNumber);
        const int width = each.section(u':', 1).toInt(&isWidth);
        if (!isNumber || !isWidth || place >= count || !missing[place] ||
            width < kNarrowestColumn || width > kWidest) {
            return {};
        }
        missing[place] = false;
        columns.emplace_back(static_cast<int>(place), width);
    }
    return columns.size() == count ? columns : decltype(columns)();
}

void storeColumns(SettingsStore &settings, const QString &key, const QTableView &grid)
{
    QStringList columns;
    for (int visual = 0; visual < grid.horizontalHeader()->count(); ++visual) {
        const int place = grid.horizontalHeader()->logicalIndex(visual);
        const int width = grid.isColumnHidden(place) ? kNarrowestColumn : grid.columnWidth(place);
        columns +=
            QStringLiteral("%1:%2").arg(place).arg(std::clamp(width, kNarrowestColumn, kWidest));
    }
    settings.save(key, columns.join(u';'));
}
