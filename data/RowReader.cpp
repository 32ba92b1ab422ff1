#include "data/RowReader.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/RowList.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

RecordsetRow toRow(const QVariantList &values)
{
    return {values.first().toLongLong(), values.mid(1)};
}

} // namespace

RowReader::RowReader(std::shared_ptr<Connection> connection, Query query)
    : connection_(std::move(connection)), select_(std::move(query))
{
    if (!connection_) {
        throw RuntimeFailure(QCoreApplication::translate("Recordset", "Ingen database er åpen"));
    }
    connection_->prepare(select_.sql(select_.columns()));
    if (!this->query().sort.isEmpty()) {
        sort(this->query().sort);
    }
}

void RowReader::sort(const QString &column)
{
    const QString name = column.isEmpty() ? QString() : query().columns[columnIndex(column)];
    select_.sortBy(name, !name.isEmpty() && isRowNumber(name));
    refresh();
}

void RowReader::search(const QString &text)
{
    select_.lookFor(text);
    refresh();
}

int RowReader::columnIndex(const QString &column) const
{
    const QString name = sqlName(column);
    for (qsizetype i = 0; i < query().columns.size(); ++i) {
        if (same(sqlName(query().columns[i]), name)) {
            return static_cast<int>(i);
        }
    }
    throw RuntimeFailure(
        QCoreApplication::translate("Recordset", "Kolonnen «%1» finnes ikke").arg(column));
}

bool RowReader::isRowNumber(const QString &column)
{
    bool found = same(sqlName(column), select_.key());
    if (!query().source.startsWith(u'(')) {
        connection_->run(QStringLiteral("PRAGMA table_info(%1)").arg(select_.source()), {},
                         [&](const QVariantList &info) {
                             found |= same(sqlName(info[1].toString()), sqlName(column)) &&
                                      same(info[2].toString(), QStringLiteral("INTEGER")) &&
                                      info[5].toInt() == 1;
                         });
    }
    return found;
}

std::optional<RecordsetRow> RowReader::step(const Step &step)
{
    return isSorted() ? stepInList(step) : stepByKey(step);
}

std::optional<RecordsetRow> RowReader::stepByKey(const Step &step)
{
    const bool forward = step.direction == Step::Forward;
    const QString key = select_.key();
    QStringList conditions;
    QVariantList values = select_.values();
    if (step.start) {
        conditions += key + (forward ? u'>' : u'<') +
                      (step.startIncluded ? QStringLiteral("= ?") : QStringLiteral(" ?"));
        values += *step.start;
    }
    if (!step.criterion.isEmpty()) {
        conditions += step.criterion;
        values += step.values;
    }
    std::optional<RecordsetRow> found;
    connection_->run(select_.sql(select_.columns(), conditions.join(QStringLiteral(" AND "))) +
                         QStringLiteral(" ORDER BY ") + key +
                         (forward ? QString() : QStringLiteral(" DESC")) +
                         QStringLiteral(" LIMIT 1"),
                     values, [&](const QVariantList &row) { found = toRow(row); });
    return found;
}

std::optional<RecordsetRow> RowReader::stepInList(const Step &step)
{
    const RowList &list = wholeList();
    QSet<qint64> matching;
    if (!step.criterion.isEmpty()) {
        connection_->run(select_.sql(select_.key(), step.criterion), select_.values() + step.values,
                         [&](const QVariantList &row) { matching += row[0].toLongLong(); });
    }
    const int stride = step.direction == Step::Forward ? 1 : -1;
    int place = stride > 0 ? 0 : list.count() - 1;
    if (step.start) {
        const int start = list.rowOf(*step.start);
        place = start < 0 ? list.count() : start + (step.startIncluded ? 0 : stride);
    }
    for (; place >= 0 && place < list.count(); place += stride) {
        const qint64 key = list.key(place);
        if (step.criterion.isEmpty() || matching.contains(key)) {
            // A row that somebody deleted meanwhile is passed over.
            if (auto found = row(key)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

std::optional<RecordsetRow> RowReader::row(qint64 key)
{
    const std::vector<RecordsetRow> found = rows({key});
    return found.empty() ? std::nullopt : std::optional(found.front());
}

std::vector<RecordsetRow> RowReader::rows()
{
    std::vector<RecordsetRow> all;
    const QString order = isSorted() ? select_.order() + QStringLiteral(", ") : QString();
    connection_->run(select_.sql(select_.columns()) + QStringLiteral(" ORDER BY ") + order +
                         select_.key(),
                     select_.values(), [&](const QVariantList &row) { all.push_back(toRow(row)); });
    return all;
}

std::vector<RecordsetRow> RowReader::rows(const std::vector<qint64> &keys)
{
    QVariantList values;
    QHash<qint64, std::size_t> places;
    for (const qint64 key : keys) {
        places.insert(key, places.size());
        values += key;
    }
    const QString marks = QStringList(values.size(), QStringLiteral("?")).join(u',');
    std::vector<RecordsetRow> found;
    connection_->run(QStringLiteral("SELECT %1 FROM %2 WHERE %3 IN (%4)")
                         .arg(select_.columns(), select_.source(), select_.key(), marks),
                     values, [&](const QVariantList &row) { found.push_back(toRow(row)); });
    std::ranges::sort(found, {}, [&](const RecordsetRow &row) { return places[row.bookmark]; });
    return found;
}

int RowReader::count()
{
    return connection_->single(select_.sql(QStringLiteral("count(*)")), select_.values()).toInt();
}

int RowReader::position(qint64 key)
{
    if (isSorted()) {
        return wholeList().rowOf(key) + 1;
    }
    return connection_
        ->single(select_.sql(QStringLiteral("count(*)"), select_.key() + QStringLiteral(" <= ?")),
                 select_.values() + QVariantList{key})
        .toInt();
}

const std::shared_ptr<RowList> &RowReader::list()
{
    if (!list_) {
        list_ = std::make_shared<RowList>(connection_, select_);
    }
    return list_;
}

RowList &RowReader::wholeList()
{
    list()->readAll();
    return *list_;
}

void RowReader::append(qint64 key)
{
    if (isSorted() && wholeList().rowOf(key) < 0) {
        list_->append(key);
    }
}
