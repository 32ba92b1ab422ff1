#include "users/UserPanel.h"

#include "browsers/StoredColumns.h"
#include "data/Dates.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "platform/Rules.h"
#include "platform/SettingsStore.h"
#include "platform/Text.h"
#include "ui_UserPanel.h"
#include "users/DoorSearch.h"
#include "users/StatusWords.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QToolTip>

#include <algorithm>

namespace {

/// The columns of the grid under every tab but "Saldo", from the left.
struct DesignedColumn {
    int twips; ///< least width to start with; 0 for what its content needs
    Qt::Alignment alignment;
    const char *label; ///< object name of the label that gives the heading; none: the column's
};
constexpr DesignedColumn kLayout[] = {
    {1200, Qt::AlignLeft, "NummerLBL"},    // Bruker
    {1600, Qt::AlignLeft, "EtternavnLBL"}, // Etternavn
    {1600, Qt::AlignLeft, "FornavnLBL"},   // Fornavn
    {1000, Qt::AlignLeft, "DatoLBL1"},     // Gyldig fra
    {600, Qt::AlignHCenter, nullptr},      // FraTid
    {1000, Qt::AlignLeft, "DatoLBL2"},     // Gyldig til
    {600, Qt::AlignHCenter, nullptr},      // TilTid
    {900, Qt::AlignLeft, "KontoLBL"},      // Konto
    {0, Qt::AlignLeft, "StatusLBL"},       // Status
};

constexpr int kTwipsPerPixel = 15;
constexpr int kWidestColumn = 240; // pixels, unless the operator wants more
constexpr int kRowsMeasured = 100; // for the widths of the columns, beside those in sight
constexpr int kEtternavnColumn = 1;
constexpr int kFornavnColumn = 2;
constexpr int kFraColumn = 3; // Gyldig fra
constexpr int kTilColumn = 5; // Gyldig til

QString goneText()
{
    return QCoreApplication::translate("UserPanel", "Brukeren står ikke lenger i tabellen.");
}

} // namespace

void UserPanel::connectGrid()
{
    ui_->TabStrip1->installEventFilter(this);
    connect(ui_->TabStrip1, &QTabBar::currentChanged, this, [this] { TabStrip1_Click(); });
    // A click on the tab that is selected already is no change, but counts.
    connect(ui_->TabStrip1, &QTabBar::tabBarClicked, this, [this](int tab) {
        if (tab >= 0 && tab == ui_->TabStrip1->currentIndex()) {
            TabStrip1_Click();
        }
    });

    QTableView &grid = *ui_->DataGrid1;
    grid.setModel(&model_);
    grid.installEventFilter(this);
    grid.viewport()->installEventFilter(this);
    grid.verticalHeader()->setDefaultSectionSize(grid.fontMetrics().height() + 6);
    QHeaderView &headings = *grid.horizontalHeader();
    headings.setSectionsClickable(true);
    headings.setSortIndicatorShown(true);
    headings.setResizeContentsPrecision(kRowsMeasured);
    connect(&headings, &QHeaderView::sectionResized, this, &UserPanel::columnResized);
    auto *designed = new QAction(
        QCoreApplication::translate("UserPanel", "Kolonnebredder som fra start"), &headings);
    designed->setObjectName(QStringLiteral("designedWidths"));
    connect(designed, &QAction::triggered, this, [this] {
        settings_.save(widthsKey(), QString());
        layOutColumns();
    });
    headings.addAction(designed);
    headings.setContextMenuPolicy(Qt::ActionsContextMenu);
    // A heading doesn't take the focus by itself, and the field in use would not count as left.
    connect(&headings, &QHeaderView::sectionPressed, this,
            [this] { ui_->DataGrid1->setFocus(Qt::MouseFocusReason); });
    connect(&headings, &QHeaderView::sectionClicked, this, [this](int column) {
        kept([&] {
            grid_.sortByColumn(column);
            CLEAR_INPUT();
            showRows();
        });
    });
    // The row counts when it is selected: the focus alone makes a row current, too.
    connect(grid.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &selected) { DataGrid1_RowChange(selected); });
    connect(&model_, &RecordsetModel::modelAboutToBeReset, this, &UserPanel::keepPlace);
    connect(&model_, &RecordsetModel::readOn, this, &UserPanel::backToPlace);

    lblTom_ = new QLabel(grid.viewport());
    lblTom_->setObjectName(QStringLiteral("lblTom"));
    lblTom_->setAlignment(Qt::AlignCenter);
    lblTom_->setWordWrap(true);
    lblTom_->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *above = new QVBoxLayout(grid.viewport());
    above->addWidget(lblTom_);
    connect(&model_, &RecordsetModel::modelReset, this, &UserPanel::rowsCame);
    connect(&model_, &RecordsetModel::readOn, this, &UserPanel::rowsCame);
    connect(search_, &DoorSearch::chosen, this, &UserPanel::goTo);
}

void UserPanel::VisBrukerTabell()
{
    skipped({[this] {
                 grid_.VisBrukerTabell();
                 showRows();
             },
             [this] {
                 if (!grid_.rows().isOpen()) {
                     model_.showNothing();
                 }
             },
             [this] { showTabs(); }, [this] { explainEmptiness(); }});
}

/// The tab of GridFilter is selected. When there is none any more, GridFilter keeps its word, and
/// the grid is empty until another tab is chosen.
void UserPanel::showTabs()
{
    QTabBar &strip = *ui_->TabStrip1;
    const QSignalBlocker quiet(strip);
    while (strip.count() > grid_.tabs().size()) {
        strip.removeTab(strip.count() - 1);
    }
    int selected = 0;
    for (int i = 0; i < grid_.tabs().size(); ++i) {
        const QString &caption = grid_.tabs()[i];
        // A single "&" would mark a shortcut.
        const QString text = QString(caption).replace(u'&', QStringLiteral("&&"));
        if (i == strip.count()) {
            strip.addTab(text);
        } else {
            strip.setTabText(i, text);
        }
        if (caption.compare(module_.GridFilter, Qt::CaseInsensitive) == 0) {
            selected = i;
        }
    }
    strip.setCurrentIndex(selected);
}

void UserPanel::showRows()
{
    const QModelIndex current = ui_->DataGrid1->currentIndex();
    model_.setColumns(columns());
    model_.show(grid_.rows(), current.isValid() ? RecordsetModel::GivesWay::ToAllRows
                                                : RecordsetModel::GivesWay::ToFirstRows);
    layOutColumns();
}

/// Under the tab "Saldo" the headings are those of the query.
std::vector<RecordsetModel::Column> UserPanel::columns() const
{
    std::vector<RecordsetModel::Column> columns(kTilColumn + 1);
    if (grid_.hasOwnLayout()) {
        columns.clear();
        for (const DesignedColumn &designed : kLayout) {
            const auto *label =
                designed.label ? findChild<QLabel *>(QString::fromLatin1(designed.label)) : nullptr;
            columns.push_back({.heading = label ? label->text().remove(u'&') : QString(),
                               .alignment = designed.alignment});
        }
    }
    for (const int day : {kFraColumn, kTilColumn}) {
        columns[day].shownAs = [this](const QString &text) { return shownDay(text, dateFormat_); };
    }
    return columns;
}

/// Under "Saldo" as wide as their content, once. Elsewhere as their operator left them; else none
/// is narrower than designed, and the names share the room that the others leave.
void UserPanel::layOutColumns()
{
    QTableView &grid = *ui_->DataGrid1;
    QHeaderView &headings = *grid.horizontalHeader();
    headings.setSortIndicator(grid_.sortedColumn(), Qt::AscendingOrder);
    // An empty or unseen grid says nothing about what its columns need and where they end.
    if (layingOut_ || !grid.isVisible() || model_.columnCount() == 0) {
        return;
    }
    const QScopedValueRollback layingOut(layingOut_, true);
    const bool isAutomatic = !grid_.hasOwnLayout();
    headings.setStretchLastSection(isAutomatic);
    if (isAutomatic) {
        if (!hasAutomaticWidths_) {
            grid.resizeColumnsToContents();
            hasAutomaticWidths_ = model_.rowCount() > 0;
        }
        return;
    }
    hasAutomaticWidths_ = false;
    const auto left =
        storedColumns(settings_, widthsKey(), static_cast<std::size_t>(model_.columnCount()));
    if (!left.empty()) {
        for (const auto &[column, width] : left) {
            grid.setColumnWidth(column, width);
        }
        return;
    }
    int room = grid.viewport()->width();
    for (int column = 0; column < model_.columnCount(); ++column) {
        grid.setColumnWidth(column, widthNeeded(column));
        const bool isName = column == kEtternavnColumn || column == kFornavnColumn;
        room -= isName ? 0 : grid.columnWidth(column);
    }
    const int last = grid.columnWidth(kEtternavnColumn);
    const int first = grid.columnWidth(kFornavnColumn);
    const int half = room / 2;
    int share = half; // of the last name
    if (last + first <= room) {
        share = last + (room - last - first) / 2;
    } else if (last < half || first < half) {
        share = last < half ? last : room - first;
    }
    const int least = kLayout[kEtternavnColumn].twips / kTwipsPerPixel;
    grid.setColumnWidth(kEtternavnColumn, std::max(share, least));
    grid.setColumnWidth(kFornavnColumn, std::max(room - share, least));
}

/// For heading and content, and no less than designed.
int UserPanel::widthNeeded(int column) const
{
    const QHeaderView &headings = *ui_->DataGrid1->horizontalHeader();
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &headings);
    const int arrow = column == headings.sortIndicatorSection()
                          ? margin + style()->pixelMetric(QStyle::PM_HeaderMarkSize)
                          : 0;
    const QString heading = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const int headed = headings.fontMetrics().horizontalAdvance(heading) + 3 * margin + arrow;
    const QAbstractItemView &grid = *ui_->DataGrid1; // QTableView keeps this one to itself
    const int needed = std::max(headed, grid.sizeHintForColumn(column) + 1);
    const bool isDesigned = column < static_cast<int>(std::size(kLayout));
    const int designed = isDesigned ? kLayout[column].twips / kTwipsPerPixel : 0;
    return std::max(designed, std::min(needed, kWidestColumn));
}

/// The tab "Nye" has columns of its own.
QString UserPanel::widthsKey() const
{
    return grid_.showsWaiting() ? QStringLiteral("NyeColumns") : QStringLiteral("UserColumns");
}

void UserPanel::columnResized()
{
    if (!layingOut_ && grid_.hasOwnLayout() && ui_->DataGrid1->isVisible()) {
        storeColumns(settings_, widthsKey(), *ui_->DataGrid1);
    }
}

void UserPanel::rowsCame()
{
    layOutColumns();
    explainEmptiness();
}

/// An empty table says why it is empty, and what to do.
void UserPanel::explainEmptiness()
{
    const QString door = recordsets_.doorNumber();
    QString text;
    if (!grid_.rows().isOpen()) {
        text = QCoreApplication::translate("UserPanel", "Brukerne kunne ikke leses.");
    } else if (door.isEmpty()) {
        text = QCoreApplication::translate(
            "UserPanel", "Ingen dør er valgt. Legg inn en dør i listen over dører.");
    } else if (grid_.showsWaiting()) {
        text = QCoreApplication::translate("UserPanel", "Ingen perioder venter på denne døren.");
    } else if (same(module_.GridFilter, module_.texts.alle)) {
        text =
            QCoreApplication::translate(
                "UserPanel", "Døren har ingen brukere ennå. Trykk «%1» for å legge inn den første.")
                .arg(ui_->cmdNyBruker->text().remove(u'&'));
    } else {
        text = QCoreApplication::translate("UserPanel",
                                           "Ingen brukere har denne kontoen. Velg en annen fane.");
    }
    lblTom_->setText(text);
    lblTom_->setVisible(model_.rowCount() == 0 && !model_.isReading());
}

/// Whether the end of the text is out of sight.
bool UserPanel::isCut(const QModelIndex &cell) const
{
    const QTableView &grid = *ui_->DataGrid1;
    const int margins = 2 * (grid.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    return grid.fontMetrics().horizontalAdvance(cell.data().toString()) + margins >
           grid.columnWidth(cell.column());
}

/// What a cell has no room for.
bool UserPanel::showWholeText(const QHelpEvent &help)
{
    const QModelIndex cell = ui_->DataGrid1->indexAt(help.pos());
    if (!cell.isValid() || !isCut(cell)) {
        return false;
    }
    QToolTip::showText(
        help.globalPos(),
        QStringLiteral("<span>%1</span>").arg(cell.data().toString().toHtmlEscaped()),
        ui_->DataGrid1->viewport(), ui_->DataGrid1->visualRect(cell));
    return true;
}

QString UserPanel::selectedTab() const
{
    return grid_.tabs().value(ui_->TabStrip1->currentIndex());
}

void UserPanel::chooseWaitingTab()
{
    module_.GridFilter = module_.texts.nye;
    setNewUserMode(true);
}

void UserPanel::TabStrip1_Click()
{
    const QString caption = selectedTab();
    keepEntry();
    setNewUserMode(grid_.isWaitingTab(caption));
    module_.GridFilter = caption;
    VisBrukerTabell();
    CLEAR_INPUT();
}

void UserPanel::followDoor()
{
    CLEAR_INPUT();
    recordsets_.OpenRecordsets();
    VisBrukerTabell();
    TabStrip1_Click();
}

void UserPanel::DataGrid1_Click()
{
    setNewUserMode(grid_.isWaitingTab(selectedTab()));
    RadKlikket_ = true;
}

void UserPanel::DataGrid1_RowChange(const QItemSelection &selected)
{
    if (selected.isEmpty() || returning_) {
        return;
    }
    kept([&] { grid_.rows().setBookmark(model_.bookmark(selected.first().top())); });
    if (RadKlikket_) {
        fillFromRow(selected.first().top());
    }
}

/// One that somebody has taken out of the table meanwhile is shown as the grid still has it.
void UserPanel::fillFromRow(int shownRow)
{
    const auto into = [](QLineEdit *field) {
        return [field](const QString &text) { field->setText(text); };
    };
    const auto day = [this](QDateEdit *picker) {
        return [this, picker](const QString &text) {
            const std::optional<QDate> read = readStoredDay(text);
            read ? setDay(*picker, *read) : markUnread(*picker, text);
        };
    };
    const auto hours = [](QComboBox *box) {
        return [box](const QString &text) { box->setCurrentText(text); };
    };
    // Saldo comes last: setting it may turn the form.
    const std::pair<QString, std::function<void(const QString &)>> places[] = {
        {QStringLiteral("Bruker"), into(ui_->Txtfields_0)},
        {QStringLiteral("Fornavn"), into(ui_->Txtfields_1)},
        {QStringLiteral("Etternavn"), into(ui_->Txtfields_2)},
        {QStringLiteral("Status"), into(ui_->Txtfields_3)},
        {QStringLiteral("Konto"), into(ui_->Txtfields_4)},
        {QStringLiteral("Gyldig til"), day(ui_->DTPickerTo)},
        {QStringLiteral("Gyldig fra"), day(ui_->DTPickerFrom)},
        {QStringLiteral("FraTid"), hours(ui_->FraTid)},
        {QStringLiteral("TilTid"), hours(ui_->TilTid)},
        {QStringLiteral("ID"), into(ui_->Txtfields_5)}, // waiting periods alone have one
        {QStringLiteral("Saldo"), into(ui_->Saldo)},
    };
    for (int field = 0; field < 5; ++field) {
        Txtfields_[static_cast<std::size_t>(field)]->clear();
    }
    for (QDateEdit *picker : {ui_->DTPickerFrom, ui_->DTPickerTo}) {
        markUnread(*picker, {});
    }
    const Recordset &row = NewUserMode_ ? recordsets_.rsVisNyeBrukere : recordsets_.rsVisBrukere;
    bool isThere = false;
    kept([&] { isThere = row.row().has_value(); });
    for (const auto &place : places) {
        const QString &column = place.first;
        kept([&] {
            const auto number = static_cast<int>(model_.columns().indexOf(column));
            const QString text = isThere ? row.text(column) : model_.text(shownRow, number);
            if (!text.isEmpty()) {
                place.second(text);
            }
        });
    }
    ui_->lblHint->setText(isThere ? QString() : goneText());
}

/// What the field for the status, or a cell of that column, says in plain words.
QString UserPanel::statusTip(QObject *watched, const QPoint &place) const
{
    const auto words = [this](const QString &status, const QString &number, bool isWaiting) {
        return statusWords(module_, modem_.queue, dateFormat_,
                           {status, recordsets_.doorNumber(), number, isWaiting});
    };
    if (watched == ui_->Txtfields_3) {
        const bool isWaiting = ui_->Txtfields_5->text() != QStringLiteral("9999");
        const QString tip = words(ui_->Txtfields_3->text(), ui_->Txtfields_0->text(), isWaiting);
        return tip.isEmpty() ? tip : ui_->Txtfields_3->toolTip() + u'\n' + tip;
    }
    const QModelIndex cell = ui_->DataGrid1->indexAt(place);
    const auto column = [this](const QString &name) {
        return static_cast<int>(model_.columns().indexOf(name));
    };
    return watched == ui_->DataGrid1->viewport() && cell.isValid() &&
                   cell.column() == column(QStringLiteral("Status"))
               ? words(model_.text(cell.row(), cell.column()),
                       model_.text(cell.row(), column(QStringLiteral("Bruker"))),
                       grid_.showsWaiting())
               : QString();
}

void UserPanel::keepPlace()
{
    if (place_) {
        return; // on the way back to an earlier one
    }
    const QTableView &grid = *ui_->DataGrid1;
    const QModelIndex current = grid.currentIndex();
    place_ = {.query = model_.shownQuery(),
              .current = model_.bookmark(current.row()),
              .top = model_.bookmark(grid.rowAt(0)),
              .isSelected = grid.selectionModel()->isSelected(current)};
    place_->query.sort.clear();
}

/// A hit of the search over all doors: its door, a tab that shows it, and its row as by a click.
void UserPanel::goTo(const UserHit &hit)
{
    module_.KeySelect = hit.door;
    module_.GridFilter = hit.isWaiting ? module_.texts.nye : module_.texts.alle;
    followDoor();
    ui_->DataGrid1->setFocus();
    place_ = {
        .query = model_.shownQuery(), .current = hit.key, .isSelected = true, .isChosen = true};
    place_->query.sort.clear();
    backToPlace();
}

/// Back to the row that was current, as soon as it is listed again; the form stays as it is, unless
/// the operator has chosen the row.
void UserPanel::backToPlace()
{
    if (!place_ || !model_.showsLatest()) {
        return;
    }
    Query shown = model_.shownQuery();
    shown.sort.clear();
    const bool isSameTable = shown == place_->query;
    const int row = model_.rowOf(place_->current);
    if (isSameTable && place_->current != 0 && row < 0 && model_.isReading()) {
        return;
    }
    const Place kept = *std::exchange(place_, std::nullopt);
    if (!isSameTable) {
        return;
    }
    const QScopedValueRollback returning(returning_, !kept.isChosen);
    QTableView &grid = *ui_->DataGrid1;
    if (kept.isChosen) {
        DataGrid1_Click();
        ui_->lblHint->setText(row < 0 ? goneText() : QString());
    }
    if (kept.current != 0 && row >= 0) {
        using Selection = QItemSelectionModel;
        grid.selectionModel()->setCurrentIndex(
            model_.index(row, 0),
            kept.isSelected ? Selection::ClearAndSelect | Selection::Rows : Selection::NoUpdate);
    }
    if (const int top = model_.rowOf(kept.top); kept.top != 0 && top >= 0) {
        grid.scrollTo(model_.index(top, 0), QAbstractItemView::PositionAtTop);
    }
}

/// With the form emptied no row is on screen: the next click on any row, the same one too, brings
/// it back.
void UserPanel::forgetRow()
{
    place_.reset();
    ui_->lblHint->clear();
    ui_->DataGrid1->clearSelection();
    ui_->DataGrid1->setCurrentIndex(QModelIndex());
}
