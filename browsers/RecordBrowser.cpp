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

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace {

constexpr milliseconds kTimer1 = 10'000ms;
constexpr milliseconds kPatience = 50ms; ///< of a reading: the window must go on answering
constexpr milliseconds kAskedFor = 1s;   ///< of one that somebody waits for
constexpr int kReloadsInSilence = 3;     ///< ticks of Timer1 that found the file in other hands
constexpr int kRowsMeasured = 40;        ///< for the widths of columns: a screenful

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
      work_(tools.clock.timer([this] { workOn(); })),
      workTries_(tools.person),
      reload_(tools.person, kReloadsInSilence)
{
    ui_->setupUi(this);
    for (QWidget *shownAtTimes : std::initializer_list<QWidget *>{ui_->barWork, ui_->lblWork}) {
        QSizePolicy room = shownAtTimes->sizePolicy();
        room.setRetainSizeWhenHidden(true); // the search line stays where it is
        shownAtTimes->setSizePolicy(room);
    }
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
    paintSearch();
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
    model_.setTypingTest([this] { return isTyping(); });
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
    connect(this, &QWidget::windowTitleChanged, &grid, &QWidget::setAccessibleName);
    connect(&grid, &QTableView::pressed, this, &RecordBrowser::stayHere);
    connect(&grid, &QTableView::doubleClicked, this, [this] { cellDoubleClicked(); });
    connect(&model_, &RecordsetModel::modelAboutToBeReset, this, &RecordBrowser::keepPlace);
    connect(&model_, &RecordsetModel::readOn, this, &RecordBrowser::readOn);
    connect(&model_, &RecordsetModel::editEnded, this, &RecordBrowser::searchChanged,
            Qt::QueuedConnection); // whoever ended it still counts on the rows as they are
    connect(&model_, &RecordsetModel::newRowBegun, this,
            [this](int column) { shown(person_, {}, [&] { newRowBegun(column); }); });
}

// --- loading and reading

void RecordBrowser::load()
{
    load(kAskedFor);
}

void RecordBrowser::load(milliseconds patience)
{
    if (EditFlag || AddNewFlag || !saveEdit()) {
        return;
    }
    if (!module_.DatabaseConnection) {
        throw RuntimeFailure(QCoreApplication::translate("Recordset", "Ingen database er åpen"));
    }
    const std::shared_ptr<Connection> connection = module_.DatabaseConnection->another(patience);
    translate(*connection);
    openRows(connection);
    if (table_.has(BrowserTable::Reloads) || table_.has(BrowserTable::ReloadsLater)) {
        module_.RefreshPending = false;
    }
    loaded();
    reloadDue_ = false;
}

void RecordBrowser::awaitFile()
{
    connection_->setPatience(kAskedFor);
    const auto back = qScopeGuard([this] { connection_->setPatience(kPatience); });
    adoPrimaryRS.rows({0}); // there is no such row
}

Query RecordBrowser::query() const
{
    Query query{.source = utf8(table_.source)};
    for (const BrowserColumn &column : table_.columns) {
        query.columns += utf8(column.field);
        if (column.use != BrowserColumn::Hidden) {
            query.searched += utf8(column.field);
        }
    }
    return query;
}

void RecordBrowser::openRows(const std::shared_ptr<Connection> &connection)
{
    Recordset rows; // when it cannot be opened, what is shown stays whole
    rows.open(connection, query());
    rows.search(ui_->txtSearch->text());
    rows.sort(sortToOpenIn());
    keepPlace();
    adoPrimaryRS = std::move(rows);
    connection_ = connection;
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
    if (isTyping()) {
        stayHere();
    }
    if (place_) {
        backToPlace();
    }
    if (wantsLast_ && !model_.isReading()) {
        cmdLast_Click();
    }
    if (!EditFlag && !AddNewFlag && model_.bookmark(currentRow()) != 0) {
        showPosition(); // rows above may be gone
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
    kept.across = ui_->grdDataGrid->horizontalScrollBar()->value();
    const QItemSelection selection = ui_->grdDataGrid->selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (const qint64 bookmark = model_.bookmark(row); bookmark != 0) { // the empty row
                kept.selected.push_back(bookmark);
            }
        }
    }
    std::ranges::sort(kept.selected);
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
        const QScopedValueRollback wish(wantsLast_);
        moveTo(0);
        return;
    }
    const PlaceKept kept = *std::exchange(place_, std::nullopt);
    const QScopedValueRollback wish(wantsLast_); // this is no move of the operator's
    QTableView &grid = *ui_->grdDataGrid;
    grid.setCurrentIndex(model_.index(row, kept.column));
    if (kept.selected.size() > 1) {        // one pass, however many there are
        auto next = kept.selected.begin(); // nearly always in the order of the rows
        const auto wasSelected = [&](qint64 bookmark) {
            if (next == kept.selected.end() || *next != bookmark) {
                next = std::ranges::lower_bound(kept.selected, bookmark);
            }
            return next != kept.selected.end() && *next == bookmark && (++next, true);
        };
        QItemSelection selection;
        for (int first = 0, last = 0; first < model_.recordCount(); first = last + 1) {
            last = first;
            while (wasSelected(model_.bookmark(last))) {
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
    grid.horizontalScrollBar()->setValue(kept.across);
}

void RecordBrowser::timer1Tick()
{
    // What is being typed stays; the flag waits for the next tick, or for another screen.
    if ((module_.RefreshPending || reloadDue_) && isVisible() && model_.editedRow() < 0 &&
        !EditFlag && !AddNewFlag && !isTyping()) {
        reloadDue_ = true; // another screen may take the flag before this one could read
        reload_([this] { load(kPatience); });
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

void RecordBrowser::translate(Connection &connection)
{
    const QString title = windowTitle();
    ui_->retranslateUi(this);
    setWindowTitle(title); // whoever opened the screen may have given it another
    designCaptions();
    std::map<int, QString> replaced;
    readLanguage(connection, module_.CountryCode, [&](quint8 position, const QString &text) {
        replaced[position] = text;
        applyLanguage(position, text);
    });
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
    if (event->type() == QEvent::LanguageChange && connection_ && module_.DatabaseConnection) {
        kept([this] { translate(*module_.DatabaseConnection); });
    } else if (event->type() == QEvent::PaletteChange) {
        paintSearch();
    }
}

/// The words in the empty field are paler than a text, and not too pale to read.
void RecordBrowser::paintSearch()
{
    constexpr float kStrength = 0.65F;
    QColor words = palette().color(QPalette::Text);
    words.setAlphaF(kStrength);
    QPalette readable;
    readable.setColor(QPalette::PlaceholderText, words);
    ui_->txtSearch->setPalette(readable);
}

void RecordBrowser::closeEvent(QCloseEvent *event)
{
    if (!saveEdit()) {
        event->ignore(); // it has been told why; Esc drops what was typed
        return;
    }
    endWork();
    model_.rest();
    Timer1_->setEnabled(false);
    saveColumns();
    if (connection_) { // the file may be wanted alone, as by a compaction
        connection_->close();
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
