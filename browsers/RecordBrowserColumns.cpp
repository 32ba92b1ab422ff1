#include "browsers/RecordBrowser.h"

#include "browsers/StoredColumns.h"
#include "platform/SettingsStore.h"
#include "ui_RecordBrowser.h"

#include <QHeaderView>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

// The columns of a browser: their widths and order, and the sort, as each operator has left them.

namespace {

constexpr int kWidestColumn = 240; // pixels, to start with

} // namespace

QString RecordBrowser::settingsKey(const char *what) const
{
    return objectName() + u'.' + QString::fromUtf8(what);
}

/// What its operator sorted by last, where a heading still does, else what is designed.
QString RecordBrowser::sortToOpenIn() const
{
    const QString left = table_.has(BrowserTable::KeepsSort)
                             ? settings_.get(settingsKey("Sort"), QString())
                             : QString();
    const bool isOne = std::ranges::any_of(table_.columns, [&](const BrowserColumn &column) {
        return column.sortKey != nullptr &&
               left.compare(QString::fromUtf8(column.sortKey), Qt::CaseInsensitive) == 0;
    });
    return isOne ? left : QString::fromUtf8(table_.sort);
}

/// Widths and order as their operator left them, else as designed.
void RecordBrowser::restoreColumns()
{
    if (settled_ || model_.columnCount() == 0) {
        return;
    }
    QTableView &grid = *ui_->grdDataGrid;
    QHeaderView &headings = *grid.horizontalHeader();
    const auto left = storedColumns(settings_, settingsKey("Columns"), table_.columns.size());
    for (int visual = 0; const auto &[place, width] : left) {
        headings.moveSection(headings.visualIndex(place), visual++);
        grid.setColumnWidth(place, width);
    }
    // An empty table does not say what its columns need.
    settled_ = !left.empty() || model_.recordCount() > 0;
    if (left.empty()) {
        headings.setSortIndicatorShown(table_.has(BrowserTable::HeadingSort)); // takes room
        grid.resizeColumnsToContents();
    }
    int place = 0;
    for (const BrowserColumn &column : table_.columns) {
        if (left.empty()) {
            const int width = std::min(grid.columnWidth(place) + 12, kWidestColumn);
            grid.setColumnWidth(place, std::max(column.width, width));
        }
        grid.setColumnHidden(place++, column.use == BrowserColumn::Hidden);
    }
    if (!isVisible()) { // all columns in sight, where the screen has the room
        const QMargins around = layout()->contentsMargins();
        const int wanted = headings.length() + grid.verticalHeader()->width() +
                           grid.verticalScrollBar()->sizeHint().width() + 2 * grid.frameWidth() +
                           around.left() + around.right();
        resize(std::max(width(), std::min(wanted, screen()->availableSize().width())), height());
    }
    headings.setStretchLastSection(true);
}

void RecordBrowser::saveColumns()
{
    if (!settled_) {
        return;
    }
    storeColumns(settings_, settingsKey("Columns"), *ui_->grdDataGrid);
}

std::vector<RowExport::Column> RecordBrowser::columnsInSight() const
{
    const QHeaderView &headings = *ui_->grdDataGrid->horizontalHeader();
    std::vector<RowExport::Column> columns;
    for (int visual = 0; visual < headings.count(); ++visual) {
        const int place = headings.logicalIndex(visual);
        if (!headings.isSectionHidden(place)) {
            columns.push_back(
                {place, model_.headerData(place, Qt::Horizontal, Qt::DisplayRole).toString()});
        }
    }
    return columns;
}
