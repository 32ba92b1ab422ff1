#include "browsers/RecordBrowser.h"

#include "platform/SettingsStore.h"
#include "ui_RecordBrowser.h"

#include <QHeaderView>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

// The columns of a browser: their widths and order, and the sort, as each operator has left them.
// The settings are a text that anybody may have written to: what does not fit counts as none.

namespace {

constexpr int kWidestColumn = 240; // pixels, to start with
constexpr int kNarrowest = 10;     ///< pixels that can still be taken hold of
constexpr int kWidest = 10'000;

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

/// From the left, each column with its width: "2:77;0:120;…". Empty when none were left, or not
/// each column once, with a width that it can have.
std::vector<std::pair<int, int>> RecordBrowser::columnsLeft() const
{
    std::vector<std::pair<int, int>> columns;
    std::vector<bool> missing(table_.columns.size(), true);
    const QStringList left = settings_.get(settingsKey("Columns"), QString()).split(u';');
    for (const QString &each : left) {
        bool isNumber = false;
        bool isWidth = false;
        const auto place = each.section(u':', 0, 0).toUInt(&isNumber);
        const int width = each.section(u':', 1).toInt(&isWidth);
        if (!isNumber || !isWidth || place >= missing.size() || !missing[place] ||
            width < kNarrowest || width > kWidest) {
            return {};
        }
        missing[place] = false;
        columns.emplace_back(static_cast<int>(place), width);
    }
    return columns.size() == missing.size() ? columns : decltype(columns)();
}

/// Widths and order as their operator left them, else as designed.
void RecordBrowser::restoreColumns()
{
    if (settled_ || model_.columnCount() == 0) {
        return;
    }
    QTableView &grid = *ui_->grdDataGrid;
    QHeaderView &headings = *grid.horizontalHeader();
    const auto left = columnsLeft();
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
    const QTableView &grid = *ui_->grdDataGrid;
    QStringList columns;
    for (int visual = 0; visual < model_.columnCount(); ++visual) {
        const int place = grid.horizontalHeader()->logicalIndex(visual);
        const int width = grid.isColumnHidden(place) ? kNarrowest : grid.columnWidth(place);
        columns += QStringLiteral("%1:%2").arg(place).arg(std::clamp(width, kNarrowest, kWidest));
    }
    settings_.save(settingsKey("Columns"), columns.join(u';'));
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
