#include "browsers/RecordsetModel.h"

#include "data/RowList.h"
#include "platform/Clock.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace {

QString onOneLine(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral(" "))
        .replace(u'\r', u' ')
        .replace(u'\n', u' ');
}

constexpr int kFirstRows = 2'000; ///< listed at once: some 2 ms
constexpr milliseconds kBetweenSlices = 1ms;
constexpr milliseconds kForTheView = 40ms; ///< in which it can paint the first rows

} // namespace

RecordsetModel::RecordsetModel(Clock &clock, Operator &person, QObject *parent)
    : QAbstractTableModel(parent),
      person_(person),
      tries_(person),
      slices_(clock.timer([this] { tick(); }))
{
}

RecordsetModel::~RecordsetModel() = default;

void RecordsetModel::show(Recordset &rows, GivesWay when)
{
    const std::shared_ptr<RowList> fresh = rows.list();
    tries_.beginAnew();
    const bool read = fresh->isComplete() || tries_([&] { fresh->readSlice(kFirstRows); });
    Query otherwise = shownQuery();
    otherwise.sort = rows.query().sort;
    otherwise.search = rows.query().search;
    const bool sameRows = set_ == &rows && otherwise == rows.query();
    if (reading_ != fresh) {
        endShown();
    }
    set_ = &rows;
    reading_ = fresh;
    givesWay_ = sameRows ? when : GivesWay::AtOnce;
    takeOverWhenKnown();
    takeRows();
    if (isReading()) {
        lookAgain(!read ? Tries::kPause : list_ == reading_ ? kForTheView : kBetweenSlices);
    }
}

Query RecordsetModel::shownQuery() const
{
    return list_ ? list_->query() : Query();
}

void RecordsetModel::takeOverWhenKnown()
{
    const bool known = reading_->isComplete() || givesWay_ == GivesWay::AtOnce ||
                       (givesWay_ == GivesWay::ToFirstRows && reading_->count() > 0);
    if (known && list_ != reading_ && !isHeld()) {
        takeOver();
    }
}

/// The list that is being read is shown instead of the one before.
void RecordsetModel::takeOver()
{
    beginResetModel();
    list_ = reading_;
    rows_ = 0;
    edited_ = -1;
    columns_ = set_->columns();
    gone_.clear();
    forgetWindows();
    endResetModel();
}

void RecordsetModel::showNothing()
{
    beginResetModel();
    slices_->setEnabled(false);
    set_ = nullptr;
    list_.reset();
    reading_.reset();
    rows_ = 0;
    edited_ = -1;
    columns_.clear();
    gone_.clear();
    forgetWindows();
    unreadable_ = false;
    endResetModel();
    emit readOn();
}

void RecordsetModel::tick()
{
    slices_->setEnabled(false);
    if (!set_->isOpen()) {
        showNothing();
        return;
    }
    if (unreadable_ && rows_ > 0 && tries_([this] { set_->rows({list_->key(0)}); })) {
        unreadable_ = false;
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
    removeGone();
    bool read = !unreadable_;
    if (!showsLatest() && isHeld()) {
        read = false; // what is being typed must not lose its row
    } else if (reading_) {
        read = tries_([this] { reading_->readSlice(); });
        if (reading_) { // a box may have stood open, and the reading have been stopped meanwhile
            takeOverWhenKnown();
            takeRows();
        }
    }
    if (reading_ || unreadable_ || !gone_.empty()) {
        lookAgain(read && gone_.empty() ? kBetweenSlices : Tries::kPause);
    }
}

void RecordsetModel::lookAgain(milliseconds after) const
{
    slices_->setInterval(after);
    slices_->setEnabled(true);
}

/// Rows that have been listed since become rows of the model.
void RecordsetModel::takeRows()
{
    if (list_ == reading_) {
        insertListed();
        if (reading_ && reading_->isComplete()) {
            reading_.reset();
        }
    }
    emit readOn();
}

void RecordsetModel::insertListed()
{
    const int listed = list_->count();
    if (listed <= rows_) {
        return;
    }
    beginInsertRows({}, rows_, listed - 1);
    edited_ = isNewRow(edited_) ? listed : edited_; // the empty row stands behind these
    forgetWindows(rows_);
    rows_ = listed;
    endInsertRows();
}

/// Nobody reads on what is shown: a new row stands behind it at once.
void RecordsetModel::endShown()
{
    if (list_ && !list_->isComplete()) {
        list_ = list_->soFar();
        insertListed();
    }
}

void RecordsetModel::stopReading()
{
    reading_.reset();
    endShown();
    emit readOn();
}

void RecordsetModel::rest()
{
    stopReading();
    slices_->setEnabled(false);
    unreadable_ = true;
}

qint64 RecordsetModel::bookmark(int row) const
{
    return row >= 0 && row < rows_ ? list_->key(row) : 0;
}

int RecordsetModel::rowOf(qint64 bookmark) const
{
    const int row = list_ ? list_->rowOf(bookmark) : -1;
    return row < rows_ ? row : -1;
}

const RecordsetModel::Window &RecordsetModel::window(int number) const
{
    static const Window kNothing;
    if (const auto kept = windows_.find(number); kept != windows_.end()) {
        return kept->second;
    }
    if (unreadable_) {
        return kNothing;
    }
    if (!set_->isOpen()) { // what the rows are of has gone
        lookAgain(kBetweenSlices);
        return kNothing;
    }
    std::vector<qint64> keys;
    const int first = number * kWindow;
    for (int row = first; row < std::min(first + kWindow, rows_); ++row) {
        keys.push_back(list_->key(row));
    }
    std::vector<RecordsetRow> read;
    unreadable_ = true;
    kept([&] {
        read = set_->rows(keys);
        unreadable_ = false;
    });
    if (unreadable_) {
        lookAgain(Tries::kPause);
        return kNothing;
    }
    Window fresh;
    auto next = read.begin(); // in the order of the keys
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (next != read.end() && next->bookmark == keys[i]) {
            fresh[first + static_cast<int>(i)] = std::move(next->values);
            ++next;
        } else {
            gone_.push_back(keys[i]);
        }
    }
    if (!gone_.empty()) {
        lookAgain(kBetweenSlices);
    }
    if (windows_.size() >= kKept) { // the one farthest off is in sight least likely
        const bool above = number - windows_.begin()->first > windows_.rbegin()->first - number;
        windows_.erase(above ? windows_.begin() : std::prev(windows_.end()));
    }
    return windows_[number] = std::move(fresh);
}

const QVariantList &RecordsetModel::values(int row) const
{
    static const QVariantList kNothing;
    const Window &rows = window(row / kWindow);
    const auto found = rows.find(row);
    return found == rows.end() ? kNothing : found->second;
}

void RecordsetModel::forgetWindows(int fromRow)
{
    windows_.erase(windows_.lower_bound(fromRow / kWindow), windows_.end());
}

/// Takes out what others have deleted. Where a whole window is gone the table is another than was
/// listed, and is listed anew.
void RecordsetModel::removeGone()
{
    if (isHeld()) {
        return;
    }
    const std::vector<qint64> gone = std::exchange(gone_, {});
    if (gone.size() >= kWindow) {
        kept([&] {
            set_->requery();
            show(*set_);
        });
        return;
    }
    for (const qint64 key : gone) {
        if (const int row = rowOf(key); row >= 0) {
            removeShown(row, row);
        }
    }
    if (!gone.empty()) {
        emit readOn();
    }
}

void RecordsetModel::removeShown(int first, int last)
{
    beginRemoveRows({}, first, last);
    for (int row = last; row >= first; --row) {
        list_->remove(row);
    }
    const int removed = last - first + 1;
    rows_ -= removed;
    forgetWindows(first);
    endRemoveRows();
}

QString RecordsetModel::text(int row, int column) const
{
    if (row == edited_) {
        QString text;
        kept([&] { text = set_->text(columns_.value(column)); });
        return text;
    }
    return row >= 0 && row < rows_ ? values(row).value(column).toString() : QString();
}

void RecordsetModel::setColumns(std::vector<Column> columns)
{
    layout_ = std::move(columns);
    if (columnCount() > 0) {
        emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    }
}

RecordsetModel::Column RecordsetModel::column(int place) const
{
    const auto number = static_cast<std::size_t>(place);
    return number < layout_.size() ? layout_[number] : Column{};
}

void RecordsetModel::setAddsRows(bool adds)
{
    if (adds == addsRows_) {
        return;
    }
    if (adds) {
        beginInsertRows({}, rows_, rows_);
    } else {
        beginRemoveRows({}, rows_, rows_);
    }
    addsRows_ = adds;
    adds ? endInsertRows() : endRemoveRows();
}

void RecordsetModel::beginEdit(int row)
{
    if (isNewRow(row)) {
        set_->addNew();
    } else {
        standOn(row);
    }
    edited_ = row;
    emit headerDataChanged(Qt::Vertical, row, row);
}

void RecordsetModel::endEdit()
{
    const int row = std::exchange(edited_, -1);
    forgetWindows(row);
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    emit headerDataChanged(Qt::Vertical, row, row);
    emit editEnded();
}

void RecordsetModel::standOn(int row)
{
    if (edited_ >= 0) {
        return; // it would drop what is typed
    }
    set_->standOn(rowAsShown(row));
    if (set_->bookmark() == 0) {
        failOnChangedRow();
    }
}

void RecordsetModel::setValue(int column, const QVariant &value)
{
    set_->setValue(columns_.value(column), value);
    emit dataChanged(index(edited_, column), index(edited_, column));
}

void RecordsetModel::saveEdit()
{
    if (edited_ < 0) {
        return;
    }
    const bool isNew = isNewRow(edited_);
    set_->update();
    endEdit();
    if (isNew) {
        for (const std::shared_ptr<RowList> &list : {list_, reading_}) {
            if (list && list->rowOf(set_->bookmark()) < 0) {
                list->append(set_->bookmark());
            }
        }
        insertListed();
    }
}

void RecordsetModel::cancelEdit()
{
    if (edited_ >= 0) {
        kept([&] { set_->cancelUpdate(); });
        endEdit();
    }
}

void RecordsetModel::readAgain(int row)
{
    kept([&] {
        set_->setBookmark(bookmark(row));
        const std::optional<RecordsetRow> read = set_->row();
        if (!read || read->values != values(row)) {
            windows_.erase(row / kWindow);
            emit dataChanged(index(row, 0), index(row, columnCount() - 1));
        }
    });
}

void RecordsetModel::deleteRow(int row)
{
    standOn(row);
    set_->remove();
    removeShown(row, row);
}

int RecordsetModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows_ + (addsRows_ ? 1 : 0);
}

int RecordsetModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordsetModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole: {
        const Column layout = column(index.column());
        const QString value = text(index.row(), index.column());
        const QString shown = layout.shownAs ? layout.shownAs(value) : value;
        return layout.wraps ? shown : onOneLine(shown);
    }
    case Qt::EditRole:
        return text(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(column(index.column()).alignment | Qt::AlignVCenter);
    default:
        return {};
    }
}

bool RecordsetModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const int row = index.row();
    if (role != Qt::EditRole || !index.isValid() || !column(index.column()).isEditable ||
        (edited_ >= 0 && edited_ != row)) {
        return false;
    }
    const QString typed = toWindows1252(value.toString());
    if (typed == text(row, index.column())) {
        return true;
    }
    bool done = false;
    const bool begins = isNewRow(row) && edited_ < 0;
    try {
        if (edited_ < 0) {
            beginEdit(row);
        }
        setValue(index.column(), typed);
        done = true;
    } catch (const RuntimeFailure &failure) {
        // Behind the commit: what may happen while a box is open must find no open cell.
        QMetaObject::invokeMethod(
            this, [this, failure] { shown(person_, {}, [&] { throw failure; }); },
            Qt::QueuedConnection);
    }
    if (done && begins) {
        emit newRowBegun(index.column());
    }
    return done;
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical) {
        if (role != Qt::DisplayRole) {
            return {};
        }
        return section == edited_  ? QStringLiteral("✎")
               : isNewRow(section) ? QStringLiteral("*")
                                   : QString();
    }
    if (section < 0 || section >= columns_.size()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(column(section).alignment | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    const QString heading = column(section).heading;
    return heading.isEmpty() ? columns_[section] : heading;
}

Qt::ItemFlags RecordsetModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    const int row = index.row();
    // What is typed into a row that cannot be read now could not be kept.
    const bool canBeTypedIn = index.isValid() && column(index.column()).isEditable &&
                              (row == edited_ || isNewRow(row) || !values(row).isEmpty());
    return canBeTypedIn ? usual | Qt::ItemIsEditable : usual;
}
