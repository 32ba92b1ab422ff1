#include "data/RowList.h"

#include "data/Connection.h"

#include <QScopeGuard>

#include <algorithm>
#include <cstring>

#ifdef __GLIBC__
#include <malloc.h>
#endif

/// Rows of one slice, sorted. What they sort by lies in one block, each with its length.
struct RowList::Run {
    struct Entry {
        quint64 start; ///< first eight bytes of what the row sorts by, as a number
        quint32 offset;
        quint32 length;
        qint64 key;
    };

    void add(qint64 key, const QByteArray &value)
    {
        quint64 start = 0;
        for (qsizetype i = 0; i < 8; ++i) {
            start = start << 8 | (i < value.size() ? static_cast<uchar>(value[i]) : 0U);
        }
        entries.push_back(
            {start, static_cast<quint32>(bytes.size()), static_cast<quint32>(value.size()), key});
        bytes.insert(bytes.end(), value.begin(), value.end());
    }

    /// Rows of like value keep the order of their keys.
    static bool isBefore(const Run &a, const Entry &left, const Run &b, const Entry &right)
    {
        if (left.start != right.start) {
            return left.start < right.start;
        }
        const int order = std::memcmp(a.bytes.data() + left.offset, b.bytes.data() + right.offset,
                                      std::min(left.length, right.length));
        if (order != 0) {
            return order < 0;
        }
        return left.length != right.length ? left.length < right.length : left.key < right.key;
    }

    std::vector<Entry> entries;
    std::vector<char> bytes;
};

/// The next row of a run in the merge.
struct RowList::Place {
    Run *run;
    std::size_t entry;

    bool operator<(const Place &other) const // the heap has its greatest on top
    {
        return Run::isBefore(*other.run, other.run->entries[other.entry], *run,
                             run->entries[entry]);
    }
};

RowList::RowList(std::shared_ptr<Connection> connection, RowSelect select)
    : connection_(std::move(connection)),
      select_(std::move(select)),
      phase_(select_.order().isEmpty() || comesFromAnIndex() ? Phase::Listing : Phase::Collecting),
      inKeyOrder_(select_.order().isEmpty())
{
}

RowList::~RowList() = default;

RowList::RowList(const RowList &listed)
    : connection_(listed.connection_),
      select_(listed.select_),
      phase_(listed.phase_),
      inKeyOrder_(listed.inKeyOrder_),
      keys_(listed.keys_),
      appended_(listed.appended_)
{
}

std::shared_ptr<RowList> RowList::soFar() const
{
    const std::shared_ptr<RowList> rows(new RowList(*this));
    rows->finish();
    return rows;
}

bool RowList::comesFromAnIndex() const
{
    bool sorted = false;
    connection_->run(QStringLiteral("EXPLAIN QUERY PLAN ") +
                         select_.sql(select_.key(), {}, RowSelect::Search::LeftOut) +
                         QStringLiteral(" ORDER BY %1, %2").arg(select_.order(), select_.key()),
                     select_.values(RowSelect::Search::LeftOut), [&](const QVariantList &step) {
                         sorted |= step.last().toString().contains(QStringLiteral("TEMP B-TREE"));
                     });
    return !sorted;
}

void RowList::readSlice(int rows)
{
    // A slice that fails on the way has read nothing.
    auto undo = qScopeGuard([this, count = keys_.size(), key = lastKey_, begun = begun_] {
        keys_.cutTo(count);
        lastKey_ = key;
        begun_ = begun;
    });
    switch (phase_) {
    case Phase::Listing:
        list(rows);
        break;
    case Phase::Collecting:
        collect(rows);
        break;
    case Phase::Merging:
        merge(rows);
        break;
    case Phase::Complete:
        break;
    }
    undo.dismiss();
}

void RowList::readAll()
{
    while (!isComplete()) {
        readSlice();
    }
}

bool RowList::read(const QString &what, const QString &condition, const QVariantList &behind,
                   const QString &order, int &rows,
                   const std::function<void(const QVariantList &)> &use)
{
    // The search is a column here, not a condition: a slice that finds nothing ends, too.
    constexpr auto kLeftOut = RowSelect::Search::LeftOut;
    const QString &text = select_.query().search;
    QVariantList values;
    QString hit = QStringLiteral("1");
    if (!text.isEmpty()) {
        hit = select_.searchTest();
        values += text;
    }
    values += select_.values(kLeftOut) + behind;
    const int wanted = rows;
    connection_->run(
        select_.sql(select_.key() + QStringLiteral(", ") + hit + what, condition, kLeftOut) +
            QStringLiteral(" ORDER BY %1 LIMIT %2").arg(order).arg(wanted),
        values, [&](const QVariantList &row) {
            --rows;
            lastKey_ = row[0].toLongLong();
            if (row[1].toInt() != 0) {
                use(row);
            }
        });
    begun_ |= rows < wanted;
    return rows > 0;
}

bool RowList::readByKey(const QString &what, int rows,
                        const std::function<void(const QVariantList &)> &use)
{
    const QString behind = begun_ ? select_.key() + QStringLiteral(" > ?") : QString();
    return read(what, behind, begun_ ? QVariantList{lastKey_} : QVariantList(), select_.key(), rows,
                use);
}

/// The index alone tells what comes next: what rows are ordered by is asked of the last one only,
/// since it stands in the table, where neighbours of the index lie far apart. So do rows of like
/// value get a statement of their own: to pass over them would take a slice as long as they are
/// many.
bool RowList::readByIndex(int rows, const std::function<void(const QVariantList &)> &use)
{
    const QString value = select_.order();
    const QString key = select_.key();
    const QString both = value + QStringLiteral(", ") + key;
    bool done = false;
    if (begun_) {
        // Rows without a value come first.
        const bool hasValue = lastValue_.isValid();
        const QVariantList values = hasValue ? QVariantList{lastValue_} : QVariantList();
        done =
            read({},
                 value + (hasValue ? QStringLiteral(" = ?") : QStringLiteral(" IS NULL")) +
                     QStringLiteral(" AND %1 > ?").arg(key),
                 values + QVariantList{lastKey_}, key, rows, use) &&
            read({}, value + (hasValue ? QStringLiteral(" > ?") : QStringLiteral(" IS NOT NULL")),
                 values, both, rows, use);
    } else {
        done = read({}, {}, {}, both, rows, use);
    }
    lastValue_ = connection_->single(
        QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(value, select_.source(), key),
        {lastKey_});
    return done;
}

void RowList::list(int rows)
{
    const auto use = [this](const QVariantList &row) { keys_.add(row[0].toLongLong()); };
    bool done = false;
    connection_->readTogether(
        [&] { done = inKeyOrder_ ? readByKey({}, rows, use) : readByIndex(rows, use); });
    if (done) {
        finish();
    }
}

void RowList::collect(int rows)
{
    auto run = std::make_unique<Run>();
    const bool done = readByKey(
        QStringLiteral(", sortkey(%1)").arg(select_.order()), rows,
        [&](const QVariantList &row) { run->add(row[0].toLongLong(), row.last().toByteArray()); });
    std::sort(
        run->entries.begin(), run->entries.end(),
        [&](const Run::Entry &a, const Run::Entry &b) { return Run::isBefore(*run, a, *run, b); });
    run->entries.shrink_to_fit();
    run->bytes.shrink_to_fit();
    if (!run->entries.empty()) {
        heads_.push_back({run.get(), 0});
        runs_.push_back(std::move(run));
    }
    if (done) {
        std::make_heap(heads_.begin(), heads_.end());
        phase_ = Phase::Merging;
        merge(rows);
    }
}

void RowList::merge(int rows)
{
    for (int i = 0; i < rows && !heads_.empty(); ++i) {
        std::pop_heap(heads_.begin(), heads_.end());
        Place &next = heads_.back();
        keys_.add(next.run->entries[next.entry].key);
        if (++next.entry < next.run->entries.size()) {
            std::push_heap(heads_.begin(), heads_.end());
        } else {
            heads_.pop_back();
        }
    }
    if (heads_.empty()) {
        finish();
    }
}

void RowList::finish()
{
    phase_ = Phase::Complete;
    [[maybe_unused]] const bool tookMuch = runs_.size() > 1;
    runs_.clear();
    for (const qint64 key : appended_) {
        if (rowOf(key) < 0) { // the reading may have come to it
            keys_.add(key);
        }
    }
    keys_.squeeze();
#ifdef __GLIBC__
    if (tookMuch) {
        malloc_trim(0); // else what a sort has taken stays with the program as long as it runs
    }
#endif
}

int RowList::rowOf(qint64 key) const
{
    if (hint_ < count() && this->key(hint_) == key) {
        return hint_;
    }
    const std::size_t found = keys_.find(key, inKeyOrder_);
    if (found == keys_.size()) {
        return -1;
    }
    hint_ = static_cast<int>(found);
    return hint_;
}

void RowList::append(qint64 key)
{
    if (isComplete()) {
        keys_.add(key);
    } else {
        appended_.push_back(key);
    }
}

void RowList::remove(int row)
{
    keys_.remove(static_cast<std::size_t>(row));
}
