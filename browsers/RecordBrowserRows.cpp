#include "browsers/RecordBrowser.h"

#include "data/Module1.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/SettingsStore.h"
#include "ui_RecordBrowser.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopeGuard>

#include <algorithm>

// The rows of a browser: their order, the search, the one that is current, and the keys that move
// it.

namespace {

QString utf8(const char *text)
{
    return QString::fromUtf8(text);
}

bool scrolls(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

} // namespace

void RecordBrowser::headingClicked(int column)
{
    if (!table_.has(BrowserTable::HeadingSort) || !saveEdit()) {
        return;
    }
    shown(person_, {}, [&] {
        if (const char *key = table_.columns[static_cast<std::size_t>(column)].sortKey) {
            setSort(utf8(key));
        } else if (const QString inForce = adoPrimaryRS.query().sort; !inForce.isEmpty()) {
            setSort(inForce); // once more
        } else if (const auto first = std::ranges::find_if(table_.columns, &BrowserColumn::sortKey);
                   first != table_.columns.end()) {
            setSort(utf8(first->sortKey)); // what the screen would have begun with
        }
    });
}

/// Sorts ascending, as always, and begins at the first row.
void RecordBrowser::setSort(const QString &column)
{
    sortBy(column);
    place_ = PlaceKept{};
    wantsLast_ = false;
    ui_->grdDataGrid->clearSelection();
    showRows(RecordsetModel::GivesWay::ToFirstRows);
}

void RecordBrowser::sortBy(const QString &column)
{
    adoPrimaryRS.sort(column);
    if (table_.has(BrowserTable::KeepsSort)) {
        settings_.save(settingsKey("Sort"), column);
    }
}

void RecordBrowser::showSort()
{
    const QString inForce = adoPrimaryRS.query().sort;
    QHeaderView &headings = *ui_->grdDataGrid->horizontalHeader();
    int sorted = -1;
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        if (inForce.compare(utf8(table_.columns[i].field), Qt::CaseInsensitive) == 0) {
            sorted = static_cast<int>(i);
        }
    }
    headings.setSortIndicatorShown(sorted >= 0);
    headings.setSortIndicator(sorted, Qt::AscendingOrder);
}

void RecordBrowser::searchChanged()
{
    if (!isVisible() || !adoPrimaryRS.isOpen() ||
        adoPrimaryRS.query().search == ui_->txtSearch->text() || EditFlag || AddNewFlag ||
        !saveEdit()) {
        return; // an edit that ends asks once more
    }
    wantsLast_ = false;
    shown(person_, {}, [this] {
        keepPlace();
        adoPrimaryRS.search(ui_->txtSearch->text());
        showRows(RecordsetModel::GivesWay::ToFirstRows);
    });
}

// --- the current row

int RecordBrowser::currentRow() const
{
    return ui_->grdDataGrid->currentIndex().row();
}

QString RecordBrowser::value(const char *field)
{
    QString text;
    kept([&] {
        if (model_.bookmark(currentRow()) != 0) {
            model_.standOn(currentRow()); // a set that was read anew stands elsewhere
            text = adoPrimaryRS.text(utf8(field));
        }
    });
    return text;
}

void RecordBrowser::moveTo(int row)
{
    wantsLast_ = false;
    if (row >= 0 && row < model_.rowCount()) {
        const int column = std::max(0, ui_->grdDataGrid->currentIndex().column());
        ui_->grdDataGrid->setCurrentIndex(model_.index(row, column));
    }
}

/// The operator has chosen where to be: whatever was on the way elsewhere ends.
void RecordBrowser::stayHere()
{
    wantsLast_ = false;
    if (place_) {
        const PlaceKept here{.current = model_.bookmark(currentRow())};
        place_ = model_.showsLatest() ? std::nullopt : std::optional(here);
    }
}

void RecordBrowser::currentRowChanged()
{
    const int edited = AddNewFlag ? model_.recordCount() : model_.editedRow();
    if (edited >= 0 && edited != currentRow() && (EditFlag || AddNewFlag || !saveEdit())) {
        moveTo(edited); // it is not done with yet
        return;
    }
    stayHere();
    showCurrentRow();
}

void RecordBrowser::showCurrentRow()
{
    if (model_.bookmark(currentRow()) == 0) {
        return;
    }
    if (model_.editedRow() != currentRow()) { // a move would drop what was typed
        model_.readAgain(currentRow());
    }
    showPosition();
    rowChanged();
}

void RecordBrowser::showPosition()
{
    showStatus(QStringLiteral("Record: %1").arg(currentRow() + 1));
}

void RecordBrowser::showStatus(const QString &text)
{
    ui_->lblStatus->setText(text);
}

bool RecordBrowser::saveEdit()
{
    endTyping(); // not everything that ends an edit takes the focus from its cell
    if (model_.editedRow() < 0) {
        return true;
    }
    return shown(person_, {}, [this] {
        const int row = model_.editedRow();
        const bool standsThere = row == currentRow();
        checkRow(row);
        model_.saveEdit();
        if (standsThere) {
            moveTo(row); // the empty row has moved on, and taken the place along
        }
        showProgress();
        rowSaved();
    });
}

void RecordBrowser::newRowBegun(int) {}

void RecordBrowser::beginTyping(int row, int column)
{
    const QModelIndex cell = model_.index(row, column);
    ui_->grdDataGrid->setFocus();
    ui_->grdDataGrid->setCurrentIndex(cell);
    ui_->grdDataGrid->edit(cell);
}

bool RecordBrowser::isTyping() const
{
    return ui_->grdDataGrid->indexWidget(ui_->grdDataGrid->currentIndex()) != nullptr;
}

void RecordBrowser::endTyping()
{
    // An open cell takes what was typed when it loses the focus, which a window may not have.
    QTableView &grid = *ui_->grdDataGrid;
    if (QWidget *cell = grid.indexWidget(grid.currentIndex())) {
        emit grid.itemDelegate()->commitData(cell);
        emit grid.itemDelegate()->closeEditor(cell);
    }
}

// Each of the four ignores what fails and stays on its row.
void RecordBrowser::cmdFirst_Click()
{
    moveTo(0);
}

void RecordBrowser::cmdLast_Click()
{
    moveTo(model_.recordCount() - 1);
    wantsLast_ = model_.isReading();
}

void RecordBrowser::cmdNext_Click()
{
    if (model_.recordCount() == 0) {
        return;
    }
    if (currentRow() + 1 < model_.recordCount()) {
        moveTo(currentRow() + 1);
    } else {
        person_.beep();
        moveTo(model_.recordCount() - 1);
    }
}

/// The keys go on from the last record to the empty row, where there is one, and from a row begun
/// there, which is saved thereby, to the next. The buttons stay on the records.
bool RecordBrowser::moveToEmptyRow()
{
    const int last = model_.recordCount() - 1;
    if (!model_.isNewRow(last + 1) || model_.isReading() || currentRow() < last) {
        return false;
    }
    endTyping();
    if (currentRow() > last && model_.editedRow() < 0) {
        return false; // nothing was begun
    }
    if (saveEdit()) {
        const int first = ui_->grdDataGrid->horizontalHeader()->logicalIndex(0);
        ui_->grdDataGrid->setCurrentIndex(model_.index(model_.recordCount(), first));
    }
    return true;
}

void RecordBrowser::cmdPrevious_Click()
{
    if (model_.recordCount() == 0) {
        return;
    }
    if (currentRow() > 0) {
        moveTo(currentRow() - 1);
    } else {
        person_.beep();
        moveTo(0);
    }
}

void RecordBrowser::cmdDelete_Click()
{
    const int row = currentRow();
    if (model_.editedRow() >= 0) {
        model_.cancelEdit(); // what is deleted needs no saving
    }
    if (model_.bookmark(row) == 0) {
        return;
    }
    // A row that somebody else has changed is read again, so that the next try knows it.
    auto lookAgain = qScopeGuard([&] { model_.readAgain(row); });
    model_.deleteRow(row);
    lookAgain.dismiss();
    moveTo(std::min(row, model_.recordCount() - 1));
    showCurrentRow(); // the number of the row may be the same, the row is another
    showProgress();
}

void RecordBrowser::cmdRefresh_Click()
{
    if (saveEdit()) {
        awaitFile();
        readAgain();
    }
}

bool RecordBrowser::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (key.matches(QKeySequence::Copy) && watched == ui_->grdDataGrid) {
            copySelection();
            return true;
        }
        if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
            if (auto *pressed = qobject_cast<QAbstractButton *>(watched)) {
                pressed->click();
                return true;
            }
        }
        return Form_KeyDown(key.key(), key.modifiers(), watched);
    }
    return QWidget::eventFilter(watched, event);
}

/// The keys of the frame, wherever the focus is; what the operator is typing in keeps its own.
bool RecordBrowser::Form_KeyDown(int key, Qt::KeyboardModifiers modifiers, const QObject *in)
{
    const bool inSearch = in == ui_->txtSearch;
    if (key == Qt::Key_F && modifiers == Qt::ControlModifier) {
        ui_->txtSearch->setFocus(Qt::ShortcutFocusReason);
        ui_->txtSearch->selectAll();
        return true;
    }
    if (key == Qt::Key_Escape && (stopWork() || dropWhatIsTyped(inSearch))) {
        return true;
    }
    if (EditFlag || AddNewFlag || !table_.has(BrowserTable::Keys) ||
        modifiers.testFlag(Qt::ShiftModifier)) {
        return false;
    }
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    const auto *text = qobject_cast<const QPlainTextEdit *>(in);
    if (text != nullptr && !control && scrolls(key)) {
        return false; // the frame's keys move the rows, but a long text must be read to its end
    }
    switch (key) {
    case Qt::Key_Escape:
        close();
        return true;
    case Qt::Key_End:
    case Qt::Key_Home:
        if (inSearch) {
            return false;
        }
        key == Qt::Key_End ? cmdLast_Click() : cmdFirst_Click();
        return true;
    case Qt::Key_Up:
    case Qt::Key_PageUp:
        control ? cmdFirst_Click() : cmdPrevious_Click();
        return true;
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        if (control) {
            cmdLast_Click();
        } else if (!moveToEmptyRow()) {
            cmdNext_Click();
        }
        return true;
    case Qt::Key_F5:
        if (auto *refresh = findChild<QPushButton *>(QStringLiteral("cmdRefresh"))) {
            refresh->click();
        }
        return true;
    default:
        return false;
    }
}

/// An edit of a cell or a row, or a text to look for: Esc takes that back first.
bool RecordBrowser::dropWhatIsTyped(bool inSearch)
{
    if (!EditFlag && !AddNewFlag && model_.editedRow() >= 0) {
        model_.cancelEdit();
        showCurrentRow(); // read anew, since somebody else may have changed it
        return true;
    }
    if (inSearch && !ui_->txtSearch->text().isEmpty()) {
        ui_->txtSearch->clear();
        return true;
    }
    return false;
}
