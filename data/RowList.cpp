#include "data/RowList.h"

#include "data/Connection.h"

#include <algorithm>
#include <cstring>

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
    switch (phase_) {
    case Phase::Listing:
        return list(rows);
    case Phase::Collecting:
        return collect(rows);
    case Phase::Merging:
        return merge(rows);
    case Phase::Complete:
        return;
    }
}

void RowList::readAll()
{
    while (!isComplete()) {
        readSlice();
    }
}

/// Condition for the rows behind the last one that was read.
QString RowList::behindLast(QVariantList &values) const
{
    if (!begun_) {
        return {};
    }
    const QString behindKey = select_.key() + QStringLiteral(" > ?");
    if (inKeyOrder_ || phase_ == Phase::Collecting) {
        values += lastKey_;
        return behindKey;
    }
    const QString value = select_.order();
    if (!lastValue_.isValid()) { // rows without a value come first
        values += lastKey_;
        return QStringLiteral("(%1 IS NOT NULL OR %2)").arg(value, behindKey);
    }
    values += {lastValue_, lastValue_, lastKey_};
    return QStringLiteral("%1 >= ? AND (%1 > ? OR %2)").arg(value, behindKey);
}

bool RowList::read(const QString &what, const QString &order, int rows,
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
    values += select_.values(kLeftOut);
    const QString condition = behindLast(values);
    int looked = 0;
    connection_->run(
        select_.sql(select_.key() + QStringLiteral(", ") + hit + what, condition, kLeftOut) +
            QStringLiteral(" ORDER BY %1 LIMIT %2").arg(order).arg(rows),
        values, [&](const QVariantList &row) {
            ++looked;
            lastKey_ = row[0].toLongLong();
            begun_ = true;
            if (row[1].toInt() != 0) {
                use(row);
            }
            lastValue_ = row.last();
        });
    return looked < rows;
}

void RowList::list(int rows)
{
    const QString order = select_.order();
    const bool done =
        inKeyOrder_
            ? read({}, select_.key(), rows,
                   [this](const QVariantList &row) { keys_.push_back(row[0].toLongLong()); })
            : read(QStringLiteral(", ") + order, order + QStringLiteral(", ") + select_.key(), rows,
                   [this](const QVariantList &row) { keys_.push_back(row[0].toLongLong()); });
    if (done) {
        finish();
    }
}

void RowList::collect(int rows)
{
    auto run = std::make_unique<Run>();
    const bool done = read(
        QStringLiteral(", sortkey(%1)").arg(select_.order()), select_.key(), rows,
        [&](const QVariantList &row) { run->add(row[0].toLongLong(), row.last().toByteArray()); });
    std::sort(
        run->entries.begin(), run->entries.end(),
        [&](const Run::Entry &a, const Run::Entry &b) { return Run::isBefore(*run, a, *run, b); });
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
        keys_.push_back(next.run->entries[next.entry].key);
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
    runs_.clear();
    for (const qint64 key : appended_) {
        if (rowOf(key) < 0) { // the reading may have come to it all the same
            keys_.push_back(key);
        }
    }
}

int RowList::rowOf(qint64 key) const
{
    if (hint_ < count() && this->key(hint_) == key) {
        return hint_;
    }
    const auto found = inKeyOrder_ ? std::lower_bound(keys_.begin(), keys_.end(), key)
                                   : std::find(keys_.begin(), keys_.end(), key);
    if (found == keys_.end() || *found != key) {
        return -1;
    }
    hint_ = static_cast<int>(found - keys_.begin());
    return hint_;
}

void RowList::append(qint64 key)
{
    if (isComplete()) {
        keys_.push_back(key);
    } else if (phase_ == Phase::Merging || (phase_ == Phase::Listing && !inKeyOrder_)) {
        appended_.push_back(key);
    } // else the reading comes to it: no key is as great
}

void RowList::remove(int row)
{
    keys_.erase(keys_.begin() + row);
}
