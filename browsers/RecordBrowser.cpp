#include "browsers/RecordBrowser.h"

#include "browsers/CellDelegate.h"
#include "data/Connection.h"
#include "data/LanguageTable.h"
#include "data/Module1.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/SettingsStore.h"
#include "ui_RecordBrowser.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QSaveFile>
#include <QScopeGuard>
#include <QScreen>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace {

constexpr milliseconds kTimer1 = 10'000ms;
constexpr milliseconds kBetweenSlices = 1ms;
constexpr milliseconds kPatience = 50ms; ///< of a reading: the window must go on answering
constexpr int kWidestColumn = 240;       // pixels, to start with
constexpr int kRowsMeasured = 40;        ///< for the widths of columns: a screenful

QString ownText(const char *text)
{
    return QCoreApplication::translate("RecordBrowser", text);
}

QString utf8(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

RecordBrowser::RecordBrowser(const BrowserTable &table, const BrowserTools &tools)
    : table_(table),
      module_(tools.module),
      person_(tools.person),
      clock_(tools.clock),
      settings_(tools.settings),
      model_(tools.clock, tools.person),
      ui_(std::make_unique<Ui::RecordBrowser>()),
      lblEmpty_(new QLabel),
      Timer1_(tools.clock.timer([this] { timer1Tick(); })),
      work_(tools.clock.timer([this] { workOn(); }))
{
    ui_->setupUi(this);
    // On a small screen, or a magnified one, the bar at the bottom must not be lost.
    const QSize titleBar(0, fontMetrics().height() * 2);
    resize(size().boundedTo(screen()->availableSize() - titleBar));
    setObjectName(utf8(table_.name));
    setWindowTitle(sourceText(table_.title));
    buildButtons();
    buildGrid();
    wire();
    Timer1_->setInterval(kTimer1);
    Timer1_->setEnabled(table_.has(BrowserTable::Reloads));
    ui_->grdDataGrid->setFocus(); // the table is the screen
    showProgress();
}

RecordBrowser::~RecordBrowser() = default;

void RecordBrowser::buildButtons()
{
    QWidget *before = ui_->grdDataGrid;
    for (const BrowserButton &designed : table_.buttons) {
        auto *button = new QPushButton(ui_->picButtons);
        button->setObjectName(utf8(designed.name));
        ui_->buttons->addWidget(button);
        setTabOrder(std::exchange(before, button), button);
        button->installEventFilter(this);
    }
    setTabOrder(before, ui_->cmdFirst);
    for (const auto &[name, arrow, handler] :
         {std::tuple(ui_->cmdFirst, "|<", &RecordBrowser::cmdFirst_Click),
          {ui_->cmdPrevious, "<", &RecordBrowser::cmdPrevious_Click},
          {ui_->cmdNext, ">", &RecordBrowser::cmdNext_Click},
          {ui_->cmdLast, ">|", &RecordBrowser::cmdLast_Click}}) {
        name->setText(utf8(arrow));
        connect(name, &QToolButton::clicked, this, handler);
        name->installEventFilter(this);
    }
}

void RecordBrowser::buildGrid()
{
    QTableView &grid = *ui_->grdDataGrid;
    grid.setModel(&model_);
    grid.setItemDelegate(new CellDelegate(this));
    grid.installEventFilter(this);
    lblEmpty_->setObjectName(QStringLiteral("lblEmpty"));
    lblEmpty_->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *inside = new QVBoxLayout(grid.viewport());
    inside->addWidget(lblEmpty_, 0, Qt::AlignCenter);
    const bool typedIn = std::ranges::any_of(table_.columns, [](const BrowserColumn &column) {
        return column.use == BrowserColumn::Edited;
    });
    grid.verticalHeader()->setVisible(typedIn);
    // Room for the mark of a row being edited, or the columns would jump when it comes.
    grid.verticalHeader()->setMinimumWidth(grid.fontMetrics().horizontalAdvance(u"✎"_qs) + 12);
    const bool wraps = std::ranges::any_of(table_.columns, [](const BrowserColumn &column) {
        return column.use == BrowserColumn::Wrapped;
    });
    grid.setWordWrap(wraps);
    grid.verticalHeader()->setDefaultSectionSize(
        grid.fontMetrics().lineSpacing() * (wraps ? 2 : 1) + 8);
    grid.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView &headings = *grid.horizontalHeader();
    headings.setHighlightSections(false);
    headings.setSectionsMovable(true);
    headings.setSectionsClickable(table_.has(BrowserTable::HeadingSort));
    headings.setResizeContentsPrecision(kRowsMeasured);
    grid.setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed |
                         QAbstractItemView::DoubleClicked);
}

void RecordBrowser::wire()
{
    const auto onClick = [this](const char *name, auto handler) {
        if (auto *found = findChild<QPushButton *>(utf8(name))) {
            connect(found, &QPushButton::clicked, this, handler);
        }
    };
    onClick("cmdClose", [this] { close(); });
    onClick("cmdDelete", [this] { shown(person_, {}, [this] { cmdDelete_Click(); }); });
    onClick("cmdRefresh", [this] { shown(person_, {}, [this] { cmdRefresh_Click(); }); });
    connect(ui_->cmdSaveCsv, &QPushButton::clicked, this, &RecordBrowser::saveAsCsv);
    ui_->cmdSaveCsv->installEventFilter(this);
    connect(ui_->txtSearch, &QLineEdit::textChanged, this, &RecordBrowser::searchChanged);
    ui_->txtSearch->installEventFilter(this);

    QTableView &grid = *ui_->grdDataGrid;
    connect(grid.horizontalHeader(), &QHeaderView::sectionClicked, this,
            &RecordBrowser::headingClicked);
    connect(grid.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &RecordBrowser::currentRowChanged);
    connect(&grid, &QTableView::doubleClicked, this, [this] { cellDoubleClicked(); });
    connect(&model_, &RecordsetModel::readOn, this, &RecordBrowser::readOn);
    connect(&model_, &RecordsetModel::newRowBegun, this,
            [this](int column) { shown(person_, {}, [&] { newRowBegun(column); }); });
}

// --- loading and reading

void RecordBrowser::load()
{
    if (EditFlag || AddNewFlag || !saveEdit()) {
        return;
    }
    translate();
    connectToDatabase();
    openRows();
    if (table_.has(BrowserTable::Reloads) || table_.has(BrowserTable::ReloadsLater)) {
        module_.RefreshPending = false;
    }
    loaded();
}

void RecordBrowser::connectToDatabase()
{
    if (!module_.DatabaseConnection) {
        throw RuntimeFailure(QCoreApplication::translate("Recordset", "Ingen database er åpen"));
    }
    connection_ = module_.DatabaseConnection->another();
}

Query RecordBrowser::query() const
{
    Query query{.source = utf8(table_.source)};
    for (const BrowserColumn &column : table_.columns) {
        query.columns += utf8(column.field);
    }
    return query;
}

void RecordBrowser::openRows()
{
    adoPrimaryRS.open(connection_, query());
    keepPlace();
    adoPrimaryRS.search(ui_->txtSearch->text());
    sortColumn_ = utf8(table_.sort);
    if (table_.has(BrowserTable::KeepsSort)) {
        sortColumn_ = settings_.get(settingsKey("Sort"), sortColumn_);
    }
    if (!sortColumn_.isEmpty()) {
        adoPrimaryRS.sort(sortColumn_);
    }
    // Keys of another file mean nothing here.
    const bool sameFile = std::exchange(path_, module_.DatabasePath) == module_.DatabasePath;
    showRows(sameFile ? RecordsetModel::GivesWay::ToAllRows : RecordsetModel::GivesWay::AtOnce);
}

void RecordBrowser::readAgain()
{
    keepPlace();
    adoPrimaryRS.requery();
    showRows(RecordsetModel::GivesWay::ToAllRows);
}

void RecordBrowser::showRows(RecordsetModel::GivesWay when)
{
    readingSince_ = clock_.elapsed();
    connection_->setPatience(kPatience); // what cannot be read now is read a little later
    if (place_ && place_->current == 0) {
        place_->current = startRow();
    }
    // Before the rows: the empty one of an empty table is there to stand on.
    model_.setAddsRows(table_.has(BrowserTable::AddsRows) && addsRows());
    model_.show(adoPrimaryRS, when);
    restoreColumns();
    showSort();
    backToPlace();
}

/// More rows are known: whatever waited for them goes on.
void RecordBrowser::readOn()
{
    if (place_) {
        backToPlace();
    }
    if (wantsLast_ && !model_.isReading()) {
        cmdLast_Click();
    }
    showProgress();
}

void RecordBrowser::keepPlace()
{
    if (place_) {
        return; // on the way back to an earlier one
    }
    PlaceKept kept;
    kept.current = model_.bookmark(currentRow());
    kept.top = model_.bookmark(ui_->grdDataGrid->rowAt(0));
    kept.column = std::max(0, ui_->grdDataGrid->currentIndex().column());
    const QItemSelection selection = ui_->grdDataGrid->selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            kept.selected.insert(model_.bookmark(row));
        }
    }
    kept.selected.erase(0); // the empty row
    place_ = std::move(kept);
}

/// To the row that was current before, as soon as it is listed again; to the first row when there
/// was none, or it is gone.
void RecordBrowser::backToPlace()
{
    if (!place_ || !model_.showsLatest()) {
        return;
    }
    const int row = place_->current == 0 ? -1 : model_.rowOf(place_->current);
    if (row < 0) {
        if (place_->current != 0 && model_.isReading()) {
            return;
        }
        place_.reset();
        moveTo(0);
        return;
    }
    const PlaceKept kept = *std::exchange(place_, std::nullopt);
    QTableView &grid = *ui_->grdDataGrid;
    grid.setCurrentIndex(model_.index(row, kept.column));
    if (kept.selected.size() > 1) { // one pass, however many there are
        QItemSelection selection;
        for (int first = 0, last = 0; first < model_.recordCount(); first = last + 1) {
            last = first;
            while (kept.selected.contains(model_.bookmark(last))) {
                ++last;
            }
            if (last > first) {
                selection.select(model_.index(first, 0),
                                 model_.index(last - 1, model_.columnCount() - 1));
            }
        }
        grid.selectionModel()->select(selection, QItemSelectionModel::Select);
    }
    if (const int top = model_.rowOf(kept.top); top >= 0) {
        grid.scrollTo(model_.index(top, kept.column), QAbstractItemView::PositionAtTop);
    }
}

void RecordBrowser::timer1Tick()
{
    // What is being typed stays; the flag waits for the next tick, or for another screen.
    if (module_.RefreshPending && isVisible() && model_.editedRow() < 0 && !EditFlag &&
        !AddNewFlag) {
        shown(person_, {}, [this] { load(); });
    }
}

void RecordBrowser::setTimer1(bool enabled)
{
    Timer1_->setEnabled(enabled);
}

// --- captions

QString RecordBrowser::sourceText(const char *caption) const
{
    return *caption == 0 ? QString() : QCoreApplication::translate("BrowserTable", caption);
}

void RecordBrowser::translate()
{
    const QString title = windowTitle();
    ui_->retranslateUi(this);
    setWindowTitle(title); // whoever opened the screen may have given it another
    std::map<int, QString> replaced;
    if (module_.DatabaseConnection) {
        readLanguage(*module_.DatabaseConnection, module_.CountryCode,
                     [&](quint8 position, const QString &text) {
                         replaced[position] = text;
                         applyLanguage(position, text);
                     });
    }
    const auto caption = [&](const char *designed, int position) {
        const auto found = replaced.find(position);
        return found != replaced.end() ? found->second
               : position != 0         ? utf8(designed)
                                       : sourceText(designed);
    };
    for (const BrowserButton &designed : table_.buttons) {
        button(designed.name).setText(caption(designed.caption, designed.languageRow));
    }
    headings_.clear();
    for (const BrowserColumn &column : table_.columns) {
        headings_ += caption(column.caption, column.languageRow);
    }
    for (QToolButton *arrow : {ui_->cmdFirst, ui_->cmdPrevious, ui_->cmdNext, ui_->cmdLast}) {
        arrow->setAccessibleName(arrow->toolTip());
    }
    applyRights();
    showProgress();
}

void RecordBrowser::applyLanguage(int, const QString &) {}

bool RecordBrowser::isEditable(const BrowserColumn &column) const
{
    return column.use == BrowserColumn::Edited;
}

void RecordBrowser::applyRights()
{
    std::vector<RecordsetModel::Column> columns;
    for (const BrowserColumn &column : table_.columns) {
        columns.push_back({.heading = headings_.value(static_cast<int>(columns.size())),
                           .isEditable = isEditable(column),
                           .wraps = column.use == BrowserColumn::Wrapped});
    }
    model_.setColumns(std::move(columns));
    // Both would write what only cmdUpdate may.
    ui_->txtSearch->setEnabled(!EditFlag && !AddNewFlag);
    ui_->cmdSaveCsv->setEnabled(slice_ == nullptr && !EditFlag && !AddNewFlag);
}

void RecordBrowser::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && connection_) {
        kept([this] { translate(); });
    }
}

// --- columns

QString RecordBrowser::settingsKey(const char *what) const
{
    return objectName() + u'.' + utf8(what);
}

/// Widths and order as their operator left them, else as designed.
void RecordBrowser::restoreColumns()
{
    if (settled_ || model_.columnCount() == 0) {
        return;
    }
    QTableView &grid = *ui_->grdDataGrid;
    QHeaderView &headings = *grid.horizontalHeader();
    const QByteArray left =
        QByteArray::fromBase64(settings_.get(settingsKey("Columns"), QString()).toLatin1());
    const bool restored = !left.isEmpty() && headings.restoreState(left);
    // An empty table does not say what its columns need.
    settled_ = restored || model_.recordCount() > 0;
    if (!restored) {
        grid.resizeColumnsToContents();
    }
    int place = 0;
    for (const BrowserColumn &column : table_.columns) {
        if (!restored) {
            const int width = std::min(grid.columnWidth(place) + 12, kWidestColumn);
            grid.setColumnWidth(place, std::max(column.width, width));
        }
        grid.setColumnHidden(place++, column.use == BrowserColumn::Hidden);
    }
    headings.setStretchLastSection(true);
    headings.setSectionsMovable(true);
    headings.setSectionsClickable(table_.has(BrowserTable::HeadingSort));
}

void RecordBrowser::saveColumns()
{
    if (settled_) {
        settings_.save(
            settingsKey("Columns"),
            QString::fromLatin1(ui_->grdDataGrid->horizontalHeader()->saveState().toBase64()));
    }
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

// --- sorting and searching

void RecordBrowser::headingClicked(int column)
{
    if (!table_.has(BrowserTable::HeadingSort) || !saveEdit()) {
        return;
    }
    shown(person_, {}, [&] {
        if (const char *key = table_.columns[static_cast<std::size_t>(column)].sortKey) {
            setSort(utf8(key));
        } else if (!sortColumn_.isEmpty()) {
            setSort(sortColumn_); // the one in force once more
        }
    });
}

/// Sorts ascending, as always, and begins at the first row.
void RecordBrowser::setSort(const QString &column)
{
    adoPrimaryRS.sort(column);
    sortColumn_ = column;
    if (table_.has(BrowserTable::KeepsSort)) {
        settings_.save(settingsKey("Sort"), column);
    }
    place_ = PlaceKept{};
    ui_->grdDataGrid->clearSelection();
    showRows(RecordsetModel::GivesWay::ToFirstRows);
}

void RecordBrowser::showSort()
{
    QHeaderView &headings = *ui_->grdDataGrid->horizontalHeader();
    int sorted = -1;
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        if (sortColumn_.compare(utf8(table_.columns[i].field), Qt::CaseInsensitive) == 0) {
            sorted = static_cast<int>(i);
        }
    }
    headings.setSortIndicatorShown(sorted >= 0);
    headings.setSortIndicator(sorted, Qt::AscendingOrder);
}

void RecordBrowser::searchChanged()
{
    if (!adoPrimaryRS.isOpen() || !saveEdit()) {
        return;
    }
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
    if (row >= 0 && row < model_.rowCount()) {
        const int column = std::max(0, ui_->grdDataGrid->currentIndex().column());
        ui_->grdDataGrid->setCurrentIndex(model_.index(row, column));
    }
}

void RecordBrowser::currentRowChanged()
{
    const int edited = model_.editedRow();
    if (edited >= 0 && edited != currentRow() && (EditFlag || AddNewFlag || !saveEdit())) {
        moveTo(edited); // it is not done with yet
        return;
    }
    if (place_ && !model_.showsLatest()) {
        place_ = PlaceKept{.current = model_.bookmark(currentRow())}; // the later wish counts
    }
    showCurrentRow();
}

void RecordBrowser::showCurrentRow()
{
    const qint64 bookmark = model_.bookmark(currentRow());
    if (bookmark == 0) {
        return;
    }
    if (model_.editedRow() != currentRow()) { // a move would drop what was typed
        kept([&] { adoPrimaryRS.setBookmark(bookmark); });
    }
    showStatus(QStringLiteral("Record: %1").arg(currentRow() + 1));
    rowChanged();
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
    wantsLast_ = model_.isReading();
    moveTo(model_.recordCount() - 1);
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
        readAgain();
    }
}

// --- long work

void RecordBrowser::showProgress()
{
    constexpr milliseconds kWorthShowing = 100ms;
    const bool reading = model_.isReading();
    const bool shows =
        slice_ != nullptr || (reading && clock_.elapsed() - readingSince_ > kWorthShowing);
    ui_->barWork->setVisible(shows);
    ui_->lblWork->setVisible(shows);
    if (std::exchange(busy_, shows) != shows) {
        person_.setBusy(shows);
    }
    const bool searches = !ui_->txtSearch->text().isEmpty();
    const int rows = model_.recordCount();
    const char *const found = searches    ? QT_TRANSLATE_NOOP("RecordBrowser", "%1 treff")
                              : rows == 1 ? QT_TRANSLATE_NOOP("RecordBrowser", "%1 rad")
                                          : QT_TRANSLATE_NOOP("RecordBrowser", "%1 rader");
    ui_->lblHits->setText(
        ownText(found).arg(QLocale().toString(rows) + (reading ? QStringLiteral("…") : QString())));
    lblEmpty_->setVisible(rows == 0 && !reading);
    lblEmpty_->setText(
        ownText(searches ? QT_TRANSLATE_NOOP("RecordBrowser", "Ingen rad har denne teksten.")
                         : QT_TRANSLATE_NOOP("RecordBrowser", "Tabellen er tom.")));
    ui_->cmdSaveCsv->setEnabled(slice_ == nullptr && !EditFlag && !AddNewFlag);
}

void RecordBrowser::beginWork(std::function<bool(int &percent)> slice)
{
    if (slice_ != nullptr) {
        person_.beep();
        return;
    }
    slice_ = std::move(slice);
    ui_->barWork->setRange(0, 100);
    workOn();
}

void RecordBrowser::workOn()
{
    work_->setEnabled(false);
    int percent = 0;
    bool more = false;
    const bool fine = shown(person_, {}, [&] { more = slice_(percent); });
    if (fine && more) {
        ui_->barWork->setValue(percent);
        work_->setInterval(kBetweenSlices);
        work_->setEnabled(true);
    } else {
        endWork();
    }
    showProgress();
}

void RecordBrowser::endWork()
{
    work_->setEnabled(false);
    slice_ = nullptr;
    ui_->barWork->setRange(0, 0);
}

/// Whatever takes long ends here, with what it has; a file that is not whole is not written.
bool RecordBrowser::stopWork()
{
    const bool worked = slice_ != nullptr || model_.isReading();
    endWork();
    wantsLast_ = false;
    place_.reset();
    if (model_.isReading()) {
        model_.stopReading();
    }
    showProgress();
    return worked;
}

void RecordBrowser::beginExport(std::vector<qint64> bookmarks, RowExport::Format format,
                                const std::function<void(const QString &)> &sink,
                                const std::function<void()> &finish)
{
    const auto rows = std::make_shared<RowExport>(adoPrimaryRS, std::move(bookmarks),
                                                  columnsInSight(), format, sink);
    beginWork([rows, finish](int &percent) {
        const bool more = rows->writeSlice();
        percent = static_cast<int>(100LL * rows->done() / std::max(1, rows->total()));
        if (!more) {
            finish();
        }
        return more;
    });
}

void RecordBrowser::copySelection()
{
    const QItemSelection selection = ui_->grdDataGrid->selectionModel()->selection();
    std::set<int> rows;
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.insert(rows.end(), row);
        }
    }
    std::vector<qint64> bookmarks;
    for (const int row : rows) {
        if (const qint64 bookmark = model_.bookmark(row); bookmark != 0) {
            bookmarks.push_back(bookmark);
        }
    }
    const auto text = std::make_shared<QString>();
    beginExport(
        std::move(bookmarks), RowExport::Format::Tabs,
        [text](const QString &line) { *text += line; },
        [text] { QGuiApplication::clipboard()->setText(*text); });
}

void RecordBrowser::saveAsCsv()
{
    if (!saveEdit()) {
        return;
    }
    shown(person_, {}, [this] {
        const QString path = person_.chooseNewFile(windowTitle().simplified() + u".csv"_qs,
                                                   QStringLiteral("CSV (*.csv)"));
        if (path.isEmpty()) {
            return;
        }
        model_.readAll();
        const auto file = std::make_shared<QSaveFile>(path);
        const auto check = [file](bool done) {
            if (!done) {
                throw RuntimeFailure(file->errorString());
            }
        };
        check(file->open(QIODevice::WriteOnly));
        std::vector<qint64> bookmarks;
        for (int row = 0; row < model_.recordCount(); ++row) {
            bookmarks.push_back(model_.bookmark(row));
        }
        beginExport(
            std::move(bookmarks), RowExport::Format::Csv,
            [file, check](const QString &line) { check(file->write(line.toUtf8()) >= 0); },
            [file, check] { check(file->commit()); });
    });
}

// --- keys, and the end

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

void RecordBrowser::closeEvent(QCloseEvent *event)
{
    if (!saveEdit()) {
        event->ignore(); // it has been told why; Esc drops what was typed
        return;
    }
    stopWork();
    Timer1_->setEnabled(false);
    saveColumns();
    if (std::exchange(busy_, false)) {
        person_.setBusy(false);
    }
    event->accept();
}

QAbstractButton &RecordBrowser::button(const char *name) const
{
    auto *found = findChild<QAbstractButton *>(utf8(name));
    Q_ASSERT(found != nullptr);
    return *found;
}

void RecordBrowser::placeAboveGrid(QWidget *control)
{
    ui_->aboveGrid->addWidget(control);
    setTabOrder(ui_->cmdSaveCsv, control);
}

void RecordBrowser::placeBelowGrid(QWidget *control)
{
    ui_->belowGrid->addWidget(control);
    setTabOrder(ui_->grdDataGrid, control);
}
